#pragma once

#include <string>

// Files that are replaced whole or not at all, whenever the program or the machine stops.
namespace SafeFile {

// Gives the file these bytes; an existing file keeps the letters of its name. False when it held
// them already and nothing was written. On a RuntimeError the file is as it was. The folder must be
// there.
bool ReplaceFile(const std::string& path, const std::string& bytes);

// Removes what a replacement that was cut off left in the folder. Never raises an error.
void RemoveLeftovers(const std::string& folder);

}  // namespace SafeFile
