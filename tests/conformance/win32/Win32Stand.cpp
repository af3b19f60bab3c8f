#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cwchar>
#include <deque>
#include <optional>

#include "forms/Devices.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/MakeDevices.h"
#include "forms/win32/Pumps.h"
#include "forms/win32/Utf.h"
#include "forms/win32/Win32Stage.h"
#include "tests/conformance/Stand.h"

namespace conformance {

namespace {

using namespace forms;
using win32::FormWindow;
using win32::Narrow;
using win32::Wide;

constexpr UINT tickInterval = 10;
// How long something may stand there before it counts as not expected; the time that an action may
// take under load.
constexpr ULONGLONG patience = 4000;

struct Expected {
    enum class Kind { Box, Modal, Popup };
    Kind kind = Kind::Box;
    std::string text;
    std::string caption;
    BoxButtons buttons = BoxButtons::Ok;
    BoxResult answer = BoxResult::Ok;
    std::function<bool(const Form&)> matches;
    std::function<void(Form&)> script;
    Menu* menu = nullptr;
    Menu* entry = nullptr;
    Script during;
};

std::string TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return Narrow(std::wstring_view(text).substr(0, static_cast<std::size_t>(length)));
}

bool IsOfClass(HWND window, const wchar_t* name) {
    wchar_t actual[64] = L"";
    ::GetClassNameW(window, actual, 64);
    return ::lstrcmpiW(actual, name) == 0;
}

struct Search {
    const wchar_t* name;
    std::vector<HWND> found;
};

BOOL CALLBACK AddVisible(HWND window, LPARAM data) {
    auto& target = *reinterpret_cast<Search*>(data);
    if (::IsWindowVisible(window) != 0 && IsOfClass(window, target.name)) {
        target.found.push_back(window);
    }
    return TRUE;
}

std::vector<HWND> VisibleWindowsOfClass(const wchar_t* name) {
    Search search{name, {}};
    ::EnumThreadWindows(::GetCurrentThreadId(), &AddVisible, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::vector<HWND> ChildrenOfClass(HWND parent, const wchar_t* name) {
    std::vector<HWND> found;
    for (HWND child = ::GetWindow(parent, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (IsOfClass(child, name)) {
            found.push_back(child);
        }
    }
    return found;
}

std::string WithoutReturns(std::string text) {
    std::erase(text, '\r');
    return text;
}

// A user made of messages, as an automation tool sends them. What opens is answered from a timer,
// which ticks in every loop that waits.
class Win32Stand : public Stand {
  public:
    Win32Stand() : stage(win32::MakeStage()) {
        Machine() = win32::MakeDevices();
        window = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                   ::GetModuleHandleW(nullptr), nullptr);
        ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        ::SetTimer(window, 1, tickInterval, &Win32Stand::OnTimer);
    }

    ~Win32Stand() override {
        ::KillTimer(window, 1);
        ::DestroyWindow(window);
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
            ::SendMessageW(handle, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
            ::SendMessageW(::GetParent(handle), WM_COMMAND,
                           MAKEWPARAM(::GetDlgCtrlID(handle), CBN_SELCHANGE),
                           reinterpret_cast<LPARAM>(handle));
        }
    }
    void Choose(Menu& entry) override {
        FormWindow* form = Reach(entry.form);
        if (form == nullptr) {
            return;
        }
        for (int id = firstMenuId; id < firstMenuId + mostMenuEntries; ++id) {
            if (form->Menus().Find(id) == &entry) {
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
        expected.push_back(std::move(box));
    }
    void ExpectModal(std::function<bool(const Form&)> matches,
                     std::function<void(Form&)> script) override {
        Expected modal;
        modal.kind = Expected::Kind::Modal;
        modal.matches = std::move(matches);
        modal.script = std::move(script);
        expected.push_back(std::move(modal));
    }
    void ExpectPopup(Menu& menu, Menu* entry, Script during) override {
        Expected popup;
        popup.kind = Expected::Kind::Popup;
        popup.menu = &menu;
        popup.entry = entry;
        popup.during = std::move(during);
        expected.push_back(std::move(popup));
    }
    void Verify() override {
        for (const Expected& never : expected) {
            ADD_FAILURE() << "never came: "
                          << (never.kind == Expected::Kind::Box     ? "box " + never.text
                              : never.kind == Expected::Kind::Modal ? "a modal form"
                                                                    : "a pop-up menu");
        }
        expected.clear();
    }

    bool IsShown(Form& form) override {
        const FormWindow* target = FormWindow::Existing(form);
        return target != nullptr && target->IsShown();
    }
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
        const win32::Peer* peer = form != nullptr ? form->PeerOf(control) : nullptr;
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

    static void CALLBACK OnTimer(HWND timerWindow, UINT, UINT_PTR, DWORD) {
        reinterpret_cast<Win32Stand*>(::GetWindowLongPtrW(timerWindow, GWLP_USERDATA))->OnTick();
    }
    void OnTick();
    bool AnswerBox();
    bool AnswerModal();
    bool AnswerPopup();
    void PressButton(HWND box, BoxResult answer);
    void ChooseByKeys(const Expected& popup);
    void ComplainAboutTheUnexpected();

    // Asked while what is expected next is open.
    bool HasStayedOpen() {
        const ULONGLONG now = ::GetTickCount64();
        openSince = openSince.value_or(now);
        if (now - *openSince < static_cast<ULONGLONG>(stayOpen)) {
            return false;
        }
        openSince.reset();
        return true;
    }
    bool NextIs(Expected::Kind kind) const {
        return !expected.empty() && expected.front().kind == kind;
    }
    Expected TakeNext() {
        Expected next = std::move(expected.front());
        expected.pop_front();
        return next;
    }

    std::unique_ptr<forms::Stage> stage;
    HWND window = nullptr;
    std::deque<Expected> expected;
    std::vector<HWND> knownBoxes;  // that a script deals with
    std::vector<const Form*> knownModals;
    std::optional<ULONGLONG> unexpectedSince;
    std::optional<ULONGLONG> openSince;
    static void CALLBACK RunDragging(HWND timerWindow, UINT, UINT_PTR id, DWORD) {
        ::KillTimer(timerWindow, id);
        reinterpret_cast<Win32Stand*>(::GetWindowLongPtrW(timerWindow, GWLP_USERDATA))->dragging();
    }

    Script dragging;
};

void Win32Stand::OnTick() {
    if (AnswerBox() || AnswerModal() || AnswerPopup()) {
        unexpectedSince.reset();
        return;
    }
    ComplainAboutTheUnexpected();
}

bool Win32Stand::AnswerBox() {
    if (!NextIs(Expected::Kind::Box)) {
        return false;
    }
    for (HWND box : VisibleWindowsOfClass(L"#32770")) {
        if (std::find(knownBoxes.begin(), knownBoxes.end(), box) != knownBoxes.end()) {
            continue;
        }
        if (!HasStayedOpen()) {
            return true;
        }
        const Expected wanted = TakeNext();
        knownBoxes.push_back(box);
        EXPECT_EQ(TextOf(box), wanted.caption);
        bool hasText = false;
        for (HWND child : ChildrenOfClass(box, L"Static")) {
            hasText = hasText || WithoutReturns(TextOf(child)) == WithoutReturns(wanted.text);
        }
        EXPECT_TRUE(hasText) << "the box does not say: " << wanted.text;
        const bool asks = ::GetDlgItem(box, IDYES) != nullptr;
        EXPECT_EQ(asks, wanted.buttons == BoxButtons::YesNo);
        if (wanted.during) {
            wanted.during();
        }
        PressButton(box, wanted.answer);
        std::erase(knownBoxes, box);
        return true;
    }
    return false;
}

void Win32Stand::PressButton(HWND box, BoxResult answer) {
    if (::IsWindow(box) == 0) {
        return;  // the program has ended
    }
    HWND button = nullptr;
    if (answer == BoxResult::Ok) {
        const std::vector<HWND> buttons = ChildrenOfClass(box, L"Button");
        button = buttons.empty() ? nullptr : buttons.front();
    } else {
        button = ::GetDlgItem(box, answer == BoxResult::Yes ? IDYES : IDNO);
    }
    EXPECT_TRUE(button != nullptr);
    ::SendMessageW(box, WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(button), BN_CLICKED),
                   reinterpret_cast<LPARAM>(button));
}

bool Win32Stand::AnswerModal() {
    if (!NextIs(Expected::Kind::Modal) || !Runtime::Exists()) {
        return false;
    }
    for (const auto& form : Runtime::Current().LoadedForms()) {
        const bool isNew =
            std::find(knownModals.begin(), knownModals.end(), form.get()) == knownModals.end();
        if (!isNew || !form->IsModal() || !IsShown(*form) || !expected.front().matches(*form)) {
            continue;
        }
        if (!HasStayedOpen()) {
            return true;
        }
        const auto pin = form;
        const Expected wanted = TakeNext();
        knownModals.push_back(pin.get());
        wanted.script(*pin);
        std::erase(knownModals, pin.get());
        if (pin->IsVisible() && !Runtime::Current().HasEnded()) {
            ADD_FAILURE() << "the script has ended and " << pin->name << " is still open";
            Runtime::Current().Dispatch(pin.get(), [&pin] { pin->Hide(); });
        }
        return true;
    }
    return false;
}

bool Win32Stand::AnswerPopup() {
    if (!NextIs(Expected::Kind::Popup) || VisibleWindowsOfClass(L"#32768").empty()) {
        return false;
    }
    if (!HasStayedOpen()) {
        return true;
    }
    const Expected wanted = TakeNext();
    if (wanted.during) {
        wanted.during();
    }
    ChooseByKeys(wanted);
    return true;
}

void Win32Stand::ChooseByKeys(const Expected& popup) {
    if (popup.entry == nullptr) {
        ::PostMessageW(window, WM_KEYDOWN, VK_ESCAPE, 1);
        return;
    }
    for (const Menu* entry : popup.menu->entries) {
        if (entry->visible && !entry->IsSeparator()) {
            ::PostMessageW(window, WM_KEYDOWN, VK_DOWN, 1);
        }
        if (entry == popup.entry) {
            break;
        }
    }
    ::PostMessageW(window, WM_KEYDOWN, VK_RETURN, 1);
}

// Ends what nobody expected, so that the test fails and does not hang.
void Win32Stand::ComplainAboutTheUnexpected() {
    HWND strangeBox = nullptr;
    for (HWND box : VisibleWindowsOfClass(L"#32770")) {
        if (std::find(knownBoxes.begin(), knownBoxes.end(), box) == knownBoxes.end()) {
            strangeBox = box;
        }
    }
    std::shared_ptr<Form> strangeForm;
    if (Runtime::Exists()) {
        for (const auto& form : Runtime::Current().LoadedForms()) {
            if (form->IsModal() && IsShown(*form) &&
                std::find(knownModals.begin(), knownModals.end(), form.get()) ==
                    knownModals.end()) {
                strangeForm = form;
            }
        }
    }
    if (strangeBox == nullptr && strangeForm == nullptr) {
        unexpectedSince.reset();
        return;
    }
    const ULONGLONG now = ::GetTickCount64();
    if (now - unexpectedSince.value_or(now) < patience) {
        unexpectedSince = unexpectedSince.value_or(now);
        return;
    }
    unexpectedSince.reset();
    if (strangeBox != nullptr) {
        ADD_FAILURE() << "unexpected box " << TextOf(strangeBox);
        ::EndDialog(strangeBox, IDCANCEL);
    } else {
        ADD_FAILURE() << "unexpected modal " << strangeForm->name;
        Runtime::Current().Dispatch(strangeForm.get(), [&strangeForm] { strangeForm->Hide(); });
    }
}

// Moving by keyboard is a loop of the system's own. Where windows are moved by somebody else (an X
// window manager) the system returns from it at once; then a loop that is not the program's does
// what the system's would: it takes whatever message comes.
void Win32Stand::Drag(Form& form, const Script& during) {
    FormWindow* target = Reach(form);
    if (target == nullptr) {
        return;
    }
    bool done = false;
    constexpr UINT_PTR timer = 2;
    dragging = [this, &done, &during] {
        during();
        done = true;
        ::PostMessageW(window, WM_KEYDOWN, VK_RETURN, 1);
    };
    ::SetTimer(window, timer, static_cast<UINT>(std::max(stayOpen, 50)), &RunDragging);
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
    dragging = nullptr;
}

}  // namespace

std::unique_ptr<Stand> MakeStand() { return std::make_unique<Win32Stand>(); }

}  // namespace conformance
