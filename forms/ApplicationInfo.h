#pragma once

#include <string>

namespace forms {

// Names and texts by which the program appears to the system and to the user where the forms layer
// speaks for it.
struct ApplicationInfo {
    std::string name;         // caption of the report of a fatal error; name of printed documents
    std::string registryKey;  // of the settings, below HKEY_CURRENT_USER
    std::string mutexName;    // by which the copies in a user's session know each other
    std::string savingText;  // the system shows it while the end of a session waits for the program
};

}  // namespace forms
