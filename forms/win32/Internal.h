#pragma once

#include <windows.h>

#include <functional>
#include <optional>

namespace forms {

class Form;

namespace win32 {

// Functions of the stage for the devices, and of the devices for the stage.

// The form's native window as the owner of an icon in the notification area. If the form has no
// window yet, creates it without its children. From then on, the window handles the icon's
// callback: a mouse-move message whose wParam is the icon's number, not 0, and whose lParam is the
// mouse message. Null if the form is not loaded.
HWND TrayWindowOf(Form& form, UINT iconId);
// The form's native window. Null if there is none.
HWND ExistingWindowOf(const Form& form);

// The place for the menu of an icon in the notification area: the middle of the icon, if the
// pointer is elsewhere because the user works by keyboard. Empty if the pointer is over the icon,
// or if the system does not say where the icon is.
std::optional<POINT> MenuPlaceAtIcon(HWND owner, UINT iconId);

// Called when the desktop's shell has restarted and its notification area is empty.
inline std::function<void()> onTaskbarCreated;
// Called whenever due timers have run, about once a second while the main window exists.
inline std::function<void()> onTimer;
// Runs the timers that are due. Set while the stage exists. Call it only if handlers may run.
inline std::function<void()> runOverdueTimers;
// Called when the monitors, their sizes or their scales have changed.
inline std::function<void()> onDisplayChange;

}  // namespace win32
}  // namespace forms
