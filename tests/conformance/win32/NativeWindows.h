#pragma once

#include <windows.h>

#include <string>
#include <vector>

// The windows of this thread, from the system's list.
namespace conformance {

std::string TextOf(HWND window);
// The visible windows of this class, topmost first.
std::vector<HWND> VisibleWindowsOfClass(const wchar_t* name);
std::vector<HWND> ChildrenOfClass(HWND parent, const wchar_t* name);

}  // namespace conformance
