#pragma once

#include <windows.h>

#include <optional>
#include <vector>

namespace forms::win32 {

class FormWindow;

// Place, size and resolution of a form's window.
class WindowPlacement {
  public:
    explicit WindowPlacement(FormWindow& formWindow) : window(formWindow) {}
    WindowPlacement(const WindowPlacement&) = delete;
    WindowPlacement& operator=(const WindowPlacement&) = delete;

    // Where the window opens.
    RECT Wanted() const;
    // Gives the window the place and the size that the form has.
    void Apply();
    // Gives the form the place of the window's upper left corner.
    void Adopt(POINT corner);
    // Gives the form the place, size and state of the window if the user has changed them.
    void Report();
    // A window is made at the system's resolution. The monitor that shows it may have another one.
    void AdaptToMonitor();
    // The monitors have changed: a window out of the user's reach comes back onto one of them.
    void ComeIntoReach();

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    SIZE OuterSize() const;
    std::vector<POINT> TakenCorners() const;
    RECT RestoredPlace() const;
    POINT RestoredOrigin() const;
    bool IsMinimizedOrMaximized() const;
    void OnMinMaxInfo(MINMAXINFO& info) const;
    // suggestion: address of the RECT that the window is to take; it may be wrong.
    void OnScaleChanged(int dpi, LPARAM suggestion);
    void Rescale(int dpi, const RECT& place);
    void RestoreInnerSize();

    FormWindow& window;
    bool sizing = false;  // the user drags the window or its border
};

}  // namespace forms::win32
