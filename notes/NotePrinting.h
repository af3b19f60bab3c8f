#pragma once

#include <string>

namespace StandardCode {

// Prints a note on the default printer. If that fails, abandons the document and shows an error. If
// the user cancels the document, prints nothing and shows no error. Handlers may run meanwhile.
void PrintNote(std::string title, std::string text);

}  // namespace StandardCode
