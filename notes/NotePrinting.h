#pragma once

#include <string>

namespace StandardCode {

// Prints a note on the default printer. If that fails, shows an error and abandons the document.
void PrintNote(const std::string& title, const std::string& text);

}  // namespace StandardCode
