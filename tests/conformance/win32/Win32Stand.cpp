#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <string>

#include "forms/Devices.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/MakeDevices.h"
#include "forms/win32/Pumps.h"
#include "forms/win32/Utf.h"
#include "forms/win32/Win32Stage.h"
#include "tests/conformance/Stand.h"
#include "tests/conformance/win32/Answers.h"
#include "tests/conformance/win32/NativeWindows.h"

namespace conformance {

namespace {

using namespace forms;
using win32::FormWindow;
using win32::Wide;

const ApplicationInfo application{.name = "Program",
                                  .registryKey = "Software\\Conformance",
                                  .mutexName = "Local\\Conformance",
                                  .savingText = "Saving."};

// A user who acts through messages, like an automation tool.
class Win32Stand : public Stand {
  public:
    Win32Stand() : stage(win32::MakeStage(application)), answers(stayOpenUntil) {
        Machine() = win32::MakeDevices(application);
    }

    ~Win32Stand() override {
        stage.reset();
        Machine() = Devices{};
    }

    forms::Stage& Stage() override { return *stage; }
    std::int64_t Milliseconds() override { return Machine().clock->MonotonicMilliseconds(); }
    void BeBusy(int milliseconds) override { ::Sleep(static_cast<DWORD>(milliseconds)); }

    void Pump(int milliseconds) override {
        const ULONGLONG end = ::GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
        win32::pumps::Run([end] { return ::GetTickCount64() < end; });
    }

    void Click(Control& control) override {
        if (HWND handle = Reach(control); handle != nullptr) {
            ::SetActiveWindow(::GetAncestor(handle, GA_ROOT));
            ::SendMessageW(handle, BM_CLICK, 0, 0);
        }
    }
    void Type(TextBox& textBox, const std::string& content) override {
        if (HWND handle = Reach(textBox); handle != nullptr) {
            ::SetActiveWindow(::GetAncestor(handle, GA_ROOT));
            ::SetFocus(handle);
            ::SendMessageW(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(content).c_str()));
        }
    }
    void Select(ComboBox& comboBox, int index) override {
        if (HWND handle = Reach(comboBox); handle != nullptr) {
            ::SetActiveWindow(::GetAncestor(handle, GA_ROOT));
            ::SetFocus(handle);
            ::SendMessageW(handle, CB_SHOWDROPDOWN, TRUE, 0);
            ::SendMessageW(handle, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
            // Enter chooses the entry that is marked in the open list.
            ::SendMessageW(handle, WM_KEYDOWN, VK_RETURN, 0);
            ::SendMessageW(handle, WM_CHAR, VK_RETURN, 0);
            EXPECT_FALSE(::SendMessageW(handle, CB_GETDROPPEDSTATE, 0, 0));
        }
    }
    void Choose(Menu& entry) override {
        FormWindow* form = Reach(entry.form);
        if (form == nullptr) {
            return;
        }
        for (int id = firstMenuId; id < firstMenuId + mostMenuEntries; ++id) {
            if (form->menus.Find(id) == &entry) {
                ::SendMessageW(form->handle, WM_COMMAND, static_cast<WPARAM>(id), 0);
                return;
            }
        }
        ADD_FAILURE() << entry.name << " is in no menu";
    }
    void CloseBox(Form& form) override { SystemCommand(form, SC_CLOSE); }
    void Minimize(Form& form) override {
        SystemCommand(form, SC_MINIMIZE);
        Pump(100);
    }
    void Restore(Form& form) override {
        SystemCommand(form, SC_RESTORE);
        Pump(100);
    }
    void PressTab() override { PressKey(VK_TAB); }
    void PressEnter() override { PressKey(VK_RETURN); }
    void PressEscape() override { PressKey(VK_ESCAPE); }
    void PressMenuKey() override { PressKey(VK_APPS); }
    void PressAccessKey(Form& form, char letter) override {
        if (FormWindow* target = Reach(form); target != nullptr) {
            constexpr LPARAM withAlt = LPARAM{1} << 29;
            HWND focus = ::GetFocus();
            EXPECT_TRUE(focus != nullptr) << "no window has the keyboard";
            ::PostMessageW(focus, WM_SYSCHAR, static_cast<WPARAM>(letter), withAlt);
            Pump(50);
        }
    }
    void Drag(Form& form, const Script& during) override;

    void ExpectBox(const std::string& text, const std::string& caption, BoxButtons buttons,
                   BoxResult answer, Script during) override {
        Expected box;
        box.text = text;
        box.caption = caption;
        box.buttons = buttons;
        box.answer = answer;
        box.during = std::move(during);
        answers.Expect(std::move(box));
    }
    void ExpectModal(std::function<bool(const Form&)> matches,
                     std::function<void(Form&)> script) override {
        Expected modal;
        modal.kind = Expected::Kind::Modal;
        modal.matches = std::move(matches);
        modal.script = std::move(script);
        answers.Expect(std::move(modal));
    }
    void ExpectPopup(Menu& menu, Menu* entry, Script during) override {
        Expected popup;
        popup.kind = Expected::Kind::Popup;
        popup.menu = &menu;
        popup.entry = entry;
        popup.during = std::move(during);
        answers.Expect(std::move(popup));
    }
    void Verify() override { answers.Verify(); }

    bool IsShown(Form& form) override { return IsOnScreen(form); }
    bool CanBeUsed(Form& form) override {
        return IsShown(form) && ::IsWindowEnabled(FormWindow::Existing(form)->handle) != 0;
    }
    bool CanBeUsed(Control& control) override {
        HWND handle = HandleOf(control);
        return handle != nullptr && ::IsWindowVisible(handle) != 0 &&
               ::IsWindowEnabled(handle) != 0;
    }
    std::string ShownCaption(CommandButton& button) override { return TextOf(HandleOf(button)); }
    std::string ShownText(TextBox& textBox) override { return TextOf(HandleOf(textBox)); }
    bool IsShownChecked(Control& control) override {
        return ::SendMessageW(HandleOf(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }

  private:
    static constexpr int firstMenuId = win32::NativeMenus::firstId;
    static constexpr int mostMenuEntries = 500;

    static HWND HandleOf(Control& control) {
        const FormWindow* form = FormWindow::Existing(control.form);
        const win32::Peer* peer = form != nullptr ? form->controls.Find(control) : nullptr;
        return peer != nullptr ? peer->handle : nullptr;
    }
    FormWindow* Reach(Form& form) {
        if (!CanBeUsed(form)) {
            ADD_FAILURE() << form.name << " cannot be used";
            return nullptr;
        }
        return FormWindow::Existing(form);
    }
    HWND Reach(Control& control) {
        if (Reach(control.form) == nullptr) {
            return nullptr;
        }
        if (!CanBeUsed(control)) {
            ADD_FAILURE() << control.name << " cannot be used";
            return nullptr;
        }
        return HandleOf(control);
    }
    void SystemCommand(Form& form, WPARAM command) {
        if (FormWindow* target = Reach(form); target != nullptr) {
            ::SendMessageW(target->handle, WM_SYSCOMMAND, command, 0);
        }
    }
    void PressKey(WPARAM key) {
        HWND focus = ::GetFocus();
        ASSERT_TRUE(focus != nullptr) << "no window has the keyboard";
        ::PostMessageW(focus, WM_KEYDOWN, key, 1);
        ::PostMessageW(focus, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        Pump(50);
    }

    std::unique_ptr<forms::Stage> stage;
    Answers answers;
};

// While the user moves a window by keyboard, the system runs its own loop. If an X window manager
// moves the windows, the system returns at once, and this function runs a similar loop, which takes
// every message.
void Win32Stand::Drag(Form& form, const Script& during) {
    FormWindow* target = Reach(form);
    if (target == nullptr) {
        return;
    }
    bool done = false;
    answers.Later([this, &done, &during] {
        during();
        done = true;
        answers.PressKey(VK_RETURN);
    });
    ::SendMessageW(target->handle, WM_SYSCOMMAND, SC_MOVE, 0);
    if (!done) {
        ::SendMessageW(target->handle, WM_ENTERSIZEMOVE, 0, 0);
        MSG message{};
        while (!done && ::GetMessageW(&message, nullptr, 0, 0) > 0) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
        ::SendMessageW(target->handle, WM_EXITSIZEMOVE, 0, 0);
    }
}

}  // namespace

std::unique_ptr<Stand> MakeStand() { return std::make_unique<Win32Stand>(); }

}  // namespace conformance
