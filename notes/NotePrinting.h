#pragma once

#include <string>

namespace StandardCode {

// Prints a note on the default printer. If that fails, shows an error and abandons the document. If
// the user cancels it, does nothing. Handlers may run meanwhile.
void PrintNote(std::string title, std::string text);

}  // namespace StandardCode
