#pragma once

#include <string>

namespace forms::headless {

// The file or folder that a path means, by the rules of Windows for names and lengths.
struct DiskPath {
    // RuntimeError 52 if the path has no drive or a name that Windows refuses, 76 if it is too
    // long.
    explicit DiskPath(std::string path);

    std::string key;   // in capitals: "C:" for the root of the drive, "C:\\FOLDER\\NAME.TXT"
    std::string name;  // the last name, as it is written in the path
};

}  // namespace forms::headless
