#pragma once

#include <memory>
#include <string>

#include "notes/frmNote.h"

namespace StandardCode {

// Opens the editor of a new note in the user's default colour and font size and gives its text the
// focus. The title is not checked. The note gets its file when it is first saved. RuntimeError 13
// or 6 if a default in the settings is not a number.
std::shared_ptr<frmNote> CreateNote(const std::string& title);

}  // namespace StandardCode
