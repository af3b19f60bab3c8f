#pragma once

#include <memory>
#include <string>

#include "notes/frmNote.h"

namespace StandardCode {

// Opens the editor of a new note in the user's default colour and font size and gives its text the
// focus. The title is taken as it stands; the note's file comes into being when it is saved.
// RuntimeError 13 or 6 where a default in the settings is no number.
std::shared_ptr<frmNote> CreateNote(const std::string& title);

}  // namespace StandardCode
