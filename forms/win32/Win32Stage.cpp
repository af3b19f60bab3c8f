#include "forms/win32/Win32Stage.h"

#include <windows.h>
#include <commctrl.h>

#include "forms/Runtime.h"
#include "forms/win32/Cursors.h"
#include "forms/win32/Destroying.h"
#include "forms/win32/Dpi.h"
#include "forms/win32/Fonts.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Internal.h"
#include "forms/win32/MessageFilter.h"
#include "forms/win32/Pumps.h"
#include "forms/win32/StageState.h"
#include "forms/win32/Utf.h"
#include "forms/win32/UtilityWindow.h"
#include "forms/win32/WindowStyle.h"

namespace forms::win32 {

namespace {

StageState* currentState = nullptr;

Scale ScaleFor(const Form& form, const StageState& state) {
    const FormWindow* window = FormWindow::Existing(form);
    return window != nullptr ? window->scale : Scale{SystemDpi(), state.textPercent};
}

}  // namespace

std::unique_ptr<Stage> MakeStage(const ApplicationInfo& application) {
    return std::make_unique<Win32Stage>(application);
}

HWND TrayWindowOf(Form& form, UINT iconId) {
    FormWindow* window = currentState != nullptr ? FormWindow::Of(form, *currentState) : nullptr;
    if (window == nullptr) {
        return nullptr;
    }
    window->pointer.trayIconId = iconId;
    return window->handle;
}

HWND ExistingWindowOf(const Form& form) {
    const FormWindow* window = FormWindow::Existing(form);
    return window != nullptr ? window->handle : nullptr;
}

Win32Stage::Win32Stage(const ApplicationInfo& application) : state(std::make_unique<StageState>()) {
    state->savingText = Wide(application.savingText);
    INITCOMMONCONTROLSEX controls{};
    controls.dwSize = sizeof controls;
    controls.dwICC = ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES | ICC_DATE_CLASSES;
    ::InitCommonControlsEx(&controls);
    utility = std::make_unique<UtilityWindow>(*state);
    state->utility = utility->handle();
    filter = std::make_unique<MessageFilter>(*utility);
    currentState = state.get();
    runOverdueTimers = [this] { utility->RunOverdue(); };
}

Win32Stage::~Win32Stage() {
    currentState = nullptr;
    runOverdueTimers = nullptr;
    while (!state->windows.empty()) {
        FormWindow* window = state->windows.back();
        if (!DestroyNative(window->handle)) {
            delete window;  // its native window no longer exists
        }
    }
    filter.reset();
    utility.reset();
    // A WM_QUIT that is left in the queue would affect the next stage of this thread.
    MSG left{};
    while (::PeekMessageW(&left, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != 0) {
    }
}

void Win32Stage::FormLoaded(Form& /*form*/) {
    // ShowOrHide creates the window.
}

void Win32Stage::FormUnloaded(Form& form) { form.stageData.reset(); }

void Win32Stage::ShowOrHide(Form& form) {
    FormWindow* window =
        form.IsVisible() ? FormWindow::Of(form, *state) : FormWindow::Existing(form);
    if (window != nullptr) {
        window->showing.Apply();
    }
}

void Win32Stage::FormChanged(Form& form, Aspect aspect) {
    if (FormWindow* window = FormWindow::Existing(form); window != nullptr) {
        window->Apply(aspect);
    }
}

void Win32Stage::ControlChanged(Control& control, Aspect aspect) {
    if (FormWindow* window = FormWindow::Existing(control.form); window != nullptr) {
        window->controls.Apply(control, aspect);
    }
}

void Win32Stage::MenuChanged(Menu& menu, Aspect aspect) {
    if (FormWindow* window = FormWindow::Existing(menu.form);
        window != nullptr && window->IsFilled()) {
        const Applying applying(*state);
        window->menus.Apply(window->handle, menu, aspect);
    }
}

void Win32Stage::UsableChanged(Form& form) {
    if (FormWindow* window = FormWindow::Existing(form); window != nullptr) {
        window->showing.UpdateEnabled();
    }
}

void Win32Stage::FocusMoved(Control& control) {
    // If the form is not active, its control gets the focus when the form becomes active.
    FormWindow* window = FormWindow::Existing(control.form);
    if (window != nullptr && window->IsFilled() && ::GetActiveWindow() == window->handle) {
        window->focus.Restore();
    }
}

void Win32Stage::BringToForeground(Form& form) {
    if (FormWindow* window = FormWindow::Of(form, *state); window != nullptr) {
        window->showing.BringToForeground();
    }
}

std::string Win32Stage::FetchText(TextBox& textBox) {
    const FormWindow* window = FormWindow::Existing(textBox.form);
    const Peer* peer = window != nullptr ? window->controls.Find(textBox) : nullptr;
    if (peer == nullptr || peer->handle == nullptr) {
        return std::string();
    }
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(peer->handle)) + 1, L'\0');
    const int length = ::GetWindowTextW(peer->handle, text.data(), static_cast<int>(text.size()));
    return Narrow(std::wstring_view(text).substr(0, static_cast<std::size_t>(length)));
}

void Win32Stage::RunModal(Form& form) {
    pumps::Run([&form] { return form.IsVisible(); });
}

void Win32Stage::RunMainLoop() {
    pumps::Run([] { return !Runtime::Current().LoadedForms().empty(); });
}

void Win32Stage::RunFor(int milliseconds) { pumps::RunFor(milliseconds); }

BoxResult Win32Stage::ShowMessageBox(const BoxRequest& request) {
    return pumps::ShowMessageBox(*state, request);
}

std::optional<std::string> Win32Stage::ShowOpenDialog(Form& form,
                                                      const FileDialogRequest& request) {
    return pumps::ShowOpenDialog(*state, FormWindow::Existing(form), request);
}

Menu* Win32Stage::ShowPopupMenu(Form& form, Menu& menu) {
    FormWindow* window = FormWindow::Of(form, *state);
    return window != nullptr ? pumps::ShowPopupMenu(*state, *window, menu) : nullptr;
}

void Win32Stage::Quit() { pumps::EndAll(); }

void Win32Stage::ArmTimer(std::optional<std::int64_t> due) { utility->ArmTimer(due); }

Size Win32Stage::MeasureText(const Form& form, const std::string& text, int fontSize) {
    const Scale scale = ScaleFor(form, *state);
    const SIZE size = fonts::Measure(Wide(text), fonts::Get(std::string(), fontSize, false, scale));
    return Size{scale.EnoughTwips(size.cx), scale.EnoughTwips(size.cy)};
}

Size Win32Stage::InnerSize(const Form& form) {
    const FormWindow* window = FormWindow::Existing(form);
    if (window != nullptr && window->IsFilled() && ::IsIconic(window->handle) == 0) {
        RECT inside{};
        ::GetClientRect(window->handle, &inside);
        return Size{window->scale.Twips(inside.right), window->scale.Twips(inside.bottom)};
    }
    const Size frame = FrameSize(form);
    return Size{form.width - frame.width, form.height - frame.height};
}

Size Win32Stage::FrameSize(const Form& form) {
    const Scale scale = ScaleFor(form, *state);
    const SIZE frame = FrameSizeOf(form, scale.dpi);
    return Size{scale.Twips(frame.cx), scale.Twips(frame.cy)};
}

void Win32Stage::SetMousePointer(MousePointer pointer) {
    state->hourglass = pointer == MousePointer::Hourglass;
    ::SetCursor(state->hourglass ? WaitCursor() : ArrowCursor());
}

}  // namespace forms::win32
