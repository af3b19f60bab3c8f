#pragma once

#include <string>

namespace forms {

// The program's names and texts that the forms layer shows to the user and to the system.
struct ApplicationInfo {
    std::string name;         // caption of the report of a fatal error; name of printed documents
    std::string registryKey;  // of the settings, below HKEY_CURRENT_USER
    std::string mutexName;    // by which a copy finds another one in the user's session
    std::string savingText;  // the system shows it while the end of a session waits for the program
};

}  // namespace forms
