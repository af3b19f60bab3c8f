#pragma once

#include <windows.h>

// Gives a window the controls that the editor of a note with an alarm has at 96 dpi: of the same
// classes, with the same styles, places, texts and font, and nothing else.
void MakeNoteControls(HWND parent);
