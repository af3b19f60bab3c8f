#pragma once

#include <windows.h>

#include <optional>
#include <vector>

#include "forms/win32/Dpi.h"

namespace forms::win32 {

class FormWindow;

// The place, the size and the resolution of a form's window.
class WindowPlacement {
  public:
    explicit WindowPlacement(FormWindow& formWindow) : window(formWindow) {}
    WindowPlacement(const WindowPlacement&) = delete;
    WindowPlacement& operator=(const WindowPlacement&) = delete;

    // The window's scale at this resolution. The text is smaller than the user has chosen if the
    // window would otherwise be larger than its monitor.
    Scale ScaleAt(int dpi) const;
    // The place where the window opens.
    RECT Wanted() const;
    // Moves and sizes the window to the form's place and size.
    void Apply();
    // Sets the form's left and top to this corner, which is in pixels.
    void Adopt(POINT corner);
    // If the user has moved or sized the window or changed its state, reports that to the form.
    // Handlers may run. insideChanged: the size of the inside may have changed although that of the
    // window has not.
    void Report(bool insideChanged = false);
    // Adapts a window that is not minimised to the scale of its monitor. A window is created at the
    // system's resolution, and keeps its scale while it is hidden or minimised.
    void FollowMonitor();
    // Called when the user has chosen other fonts, title bars, borders or formats.
    void FollowUserSettings();
    // Gives a window of fixed size the inner size of its form, in case its frame is larger or
    // smaller than the system announced.
    void RestoreInnerSize();
    // Called when the monitors have changed. Moves the window onto a monitor if the user cannot
    // reach it.
    void MoveOntoScreen();

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    SIZE OuterSize() const;
    std::vector<POINT> TakenCorners() const;
    RECT NormalPlace() const;
    POINT RestoredOrigin() const;
    bool IsMinimizedOrMaximized() const;
    void OnMinMaxInfo(MINMAXINFO& info) const;
    // suggestion is the address of the RECT for the window's new place. It may be invalid.
    void OnScaleChanged(int dpi, LPARAM suggestion);
    void Rescale(int dpi, const RECT& place);
    bool IsAway() const;

    FormWindow& window;
    bool sizing = false;  // whether the user is dragging the window or its border
};

}  // namespace forms::win32
