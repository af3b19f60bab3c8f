#pragma once

#include <string>

namespace StandardCode {

// Prints a note on the default printer. A failure is shown and nothing is printed.
void PrintNote(const std::string& title, const std::string& text);

}  // namespace StandardCode
