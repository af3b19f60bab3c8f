#pragma once

#include <string>

namespace forms {

// The program's names and texts that the forms layer shows to the user and to the system.
struct ApplicationInfo {
    std::string name;         // caption of the report of a fatal error; name of printed documents
    std::string registryKey;  // key of the settings, below HKEY_CURRENT_USER
    std::string mutexName;    // mutex by which a copy detects another copy in the user's session
    std::string savingText;   // shown by the system while it waits for the program to end
};

}  // namespace forms
