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

// The native window of a form. It is made bare; its menu bar and its controls are made when it is
// first shown and not minimised. When its form is unloaded, it is hidden at once, and destroyed as
// soon as none of its procedures is on the stack: the handler of a button may unload its form.
class FormWindow {
  public:
    static FormWindow* Existing(const Form& form);
    // Null if the form is not loaded or the system has no more windows.
    static FormWindow* Of(Form& form, StageState& state);
    // Null if the window is not a FormWindow of this process.
    static FormWindow* From(HWND window);

    ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    // While one of the window's procedures runs.
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

    // Whether the form still exists; if not, only the window's own members may be used.
    bool IsLive() const { return form != nullptr; }
    Form& Model() const { return *form; }
    bool IsFilled() const { return isFilled; }
    bool IsShown() const { return ::IsWindowVisible(handle) != 0; }

    // Makes the menu bar and the controls unless they are there.
    void Fill();
    void Apply(Aspect aspect);
    void ApplyIcon();
    // The form is gone: destroys the window now or as soon as possible.
    void ScheduleDestroy();
    void DestroyIfScheduled();

  private:
    FormWindow(Form& windowForm, StageState& stageState) : state(stageState), form(&windowForm) {}
    bool CreateBare();
    void DetachFromForm();

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(WPARAM wParam, LPARAM lParam);

    // Set while CreateWindow runs. WM_NCCREATE may be forged, so its parameters are not used.
    inline static FormWindow* beingMade = nullptr;

    Form* form;
    bool isFilled = false;
    bool destroyScheduled = false;
    int entered = 0;
};

}  // namespace forms::win32
