#pragma once

#include <windows.h>

#include <functional>

namespace forms {

class Form;

namespace win32 {

// What the stage and the devices beside it tell each other.

// The form's native window, made without its children where there is none yet, as the owner of an
// icon in the notification area. From now on it takes the icon's callback: a mouse-move message
// whose wParam is the icon's number, not 0, and whose lParam is the mouse message. Null when the
// form is not loaded.
HWND TrayWindowOf(Form& form, UINT iconId);
// The form's native window; null where there is none.
HWND ExistingWindowOf(const Form& form);

// Called when the desktop's shell has started anew and its notification area is empty.
inline std::function<void()> onTaskbarCreated;
// Runs the timers that are due; set while the stage exists. Only for places where handlers may run.
inline std::function<void()> runOverdueTimers;
// Called when there are other monitors, or they have another size or scale.
inline std::function<void()> onDisplayChange;

}  // namespace win32
}  // namespace forms
