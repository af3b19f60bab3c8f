#pragma once

#include <windows.h>

#include <optional>

#include "forms/Form.h"
#include "forms/win32/Dpi.h"
#include "forms/win32/NativeControls.h"
#include "forms/win32/NativeMenus.h"
#include "forms/win32/StageState.h"
#include "forms/win32/WindowFocus.h"
#include "forms/win32/WindowPlacement.h"
#include "forms/win32/WindowPointer.h"
#include "forms/win32/WindowShowing.h"
#include "forms/win32/WindowSurface.h"

namespace forms::win32 {

// The native window of a form. It is created without contents. Its menu bar and its controls are
// created when it is first shown in a state other than minimised. When its form is unloaded, a
// posted message destroys the window. If one of its procedures is still on the stack (the handler
// of a button may unload its form), the message only hides the window. The window is then destroyed
// after the procedure has returned.
class FormWindow {
  public:
    static FormWindow* Existing(const Form& form);
    // Creates the window if needed. Null if the form is not loaded or the system cannot create more
    // windows.
    static FormWindow* Of(Form& form, StageState& state);
    // Null if the window is not a FormWindow of this process.
    static FormWindow* From(HWND window);

    ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    // Exists while one of the window's procedures runs.
    class Entry {
      public:
        explicit Entry(FormWindow& formWindow) : window(formWindow) { ++window.entered; }
        ~Entry();
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;

      private:
        FormWindow& window;
    };

    StageState& state;
    HWND handle = nullptr;
    Scale scale;
    NativeControls controls{*this};
    NativeMenus menus;
    WindowSurface surface{*this};
    WindowPlacement placement{*this};
    WindowShowing showing{*this};
    WindowFocus focus{*this};
    WindowPointer pointer{*this};

    // Whether the form is still loaded. If it is not, use only the window's own members.
    bool IsLive() const { return form != nullptr; }
    Form& Model() const { return *form; }
    bool IsFilled() const { return isFilled; }
    bool IsShown() const { return ::IsWindowVisible(handle) != 0; }

    // Creates the menu bar and the controls unless they exist.
    void Fill();
    void Apply(Aspect aspect);
    void ApplyIcon();
    // Called when the form is unloaded: destroys the window now or as soon as possible.
    void ScheduleDestroy();
    void DestroyIfScheduled();

  private:
    FormWindow(Form& windowForm, StageState& stageState) : state(stageState), form(&windowForm) {}
    bool CreateBare();
    void DetachFromForm();

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(WPARAM wParam, LPARAM lParam);

    // The window that CreateWindow is creating. The parameters of WM_NCCREATE are not used, because
    // another program may have sent the message.
    inline static FormWindow* beingMade = nullptr;

    Form* form;
    bool isFilled = false;
    bool destroyScheduled = false;
    bool destroyMissed = false;  // destroyMessage came during a procedure
    int entered = 0;
};

}  // namespace forms::win32
