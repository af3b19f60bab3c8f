#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "forms/Stage.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/StageState.h"

// The loops that wait for the user and let events in. Each loop returns soon after the runtime has
// ended.
namespace forms::win32::pumps {

// Runs the program's loop while the condition is true.
void Run(const std::function<bool()>& goesOn);
// Runs the program's loop for this time.
void RunFor(int milliseconds);

BoxResult ShowMessageBox(StageState& state, const BoxRequest& request);
// window is the window that owns the dialog. It may be null.
std::optional<std::string> ShowOpenDialog(StageState& state, const FormWindow* window,
                                          const FileDialogRequest& request);
Menu* ShowPopupMenu(StageState& state, FormWindow& window, Menu& menu);

// Ends all loops of this thread: closes the menu and the boxes, and posts WM_QUIT.
void EndAll();

}  // namespace forms::win32::pumps
