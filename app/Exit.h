#pragma once

#include "forms/Form.h"

// Closes the windows and saves the notes when the program ends.
namespace StandardCode {

// Unloads all forms except this one, the default editor first. Returns false if the text of a note
// would be lost: the note could not be saved and has no recovery copy, or the text was typed into
// an alarm display that could not write it. The window of that note stays open.
bool CloseAllBut(const forms::Form& main);

// Saves all open notes when an error ends the program. Asks no questions and shows no errors.
void SaveOpenNotes();

}  // namespace StandardCode
