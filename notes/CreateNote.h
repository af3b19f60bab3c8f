#pragma once

#include <memory>
#include <string>

#include "notes/frmNote.h"

namespace StandardCode {

// Opens an editor for a new note in the user's default colour and font size, and moves the focus to
// the text. Does not check the title. The note gets its file when it is first saved. RuntimeError
// 13 if a default in the settings is not a number, 53 if the icon is missing.
std::shared_ptr<frmNote> CreateNote(const std::string& title);

}  // namespace StandardCode
