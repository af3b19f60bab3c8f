#pragma once

#include "forms/Form.h"

// How the program treats its windows when it ends.
namespace StandardCode {

// Unloads all forms but this one, the default editor first. False if the text of a note would be
// lost with the program: the note could not be saved and is in no recovery copy, or was typed into
// an alarm display that could not write it. Its window stays open.
bool CloseAllBut(const forms::Form& main);

// Saves all open notes without a question, because an error ends the program. Shows no error.
void SaveOpenNotes();

}  // namespace StandardCode
