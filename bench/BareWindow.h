#pragma once

#include <windows.h>

#include <string>

// The cheapest windows that Windows can show: plain windows with plain children. The baselines of
// bench/compare and bench/actions are made of them.

// Registers the class of the top-level windows and the class of the children.
void RegisterBareClasses(WNDPROC procedure);
// Creates a hidden window of the size of a note's editor at 96 dpi.
HWND MakeBareWindow(const std::wstring& title);
// Creates visible children in rows of four.
void MakeBareChildren(HWND parent, int count);
// Handles messages until WM_QUIT.
int RunMessageLoop();
