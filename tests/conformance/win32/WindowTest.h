#pragma once

#include <windows.h>

#include "forms/win32/FormWindow.h"
#include "tests/conformance/Stand.h"

namespace forms::win32 {

// A test with the default instance of one class of forms.
template <class T>
class WindowTest : public conformance::StandTest {
  protected:
    // Shows the window and handles the events of the next 50 milliseconds.
    void Show() {
        Start([] { Window().Show(); });
        stand->Pump(50);
    }
    static T& Window() { return Default<T>(); }
    // Call it only after the window was shown.
    static HWND FormHandle() { return FormWindow::Existing(Window())->handle; }
    static HWND HandleOf(Control& control) {
        return FormWindow::Existing(control.form)->controls.Find(control)->handle;
    }
};

}  // namespace forms::win32
