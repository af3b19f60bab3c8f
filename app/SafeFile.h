#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/Devices.h"

// Files that are replaced whole or not at all, whenever the program or the machine stops. Programs
// on several machines may share a folder: each program's temporary files have names of its own.
namespace SafeFile {

struct ReplaceOptions {
    forms::Durability durability = forms::Durability::Flushed;
    // Tries again while another program holds a file, see Patience.
    bool isPatient = true;
    // The caller has read the file and knows that it holds other bytes.
    bool isKnownToDiffer = false;
    // Called when the new bytes are on the disk and the old file is still in its place. May move
    // the old file away; if the replacement then fails, the new bytes stay in a temporary file,
    // which FindLeftovers() finds at the next start.
    std::function<void()> beforeRename{};
};

// Gives the file these bytes; an existing file keeps the letters of its name. False when it held
// them already and nothing was written. On a RuntimeError the file is as it was. The folder must be
// there.
bool ReplaceFile(const std::string& path, const std::string& bytes,
                 const ReplaceOptions& options = {});

// Moves the file to the Recycle Bin. If there is none, the file gets the ending behind its name,
// which is shortened if the new name would be too long, and a number if that name is in use. A file
// that another program holds is tried again, see Patience. Raises RuntimeErrors.
void PutAside(const std::string& path, const std::string& ending);

// The most UTF-16 units of a name, such that a file of this name in the folder has a path that
// every program takes.
std::size_t LongestName(const std::string& folder);
// The beginning of the text, of at most so many UTF-16 units.
std::string Shortened(const std::string& text, std::size_t units);

// Whether both paths or names are of one file, as the file system compares them.
bool IsSameName(const std::string& a, const std::string& b);

// Tells other programs that this one works in the folder, until the program ends. Repeated calls do
// nothing. Never raises an error.
void MarkInUse(const std::string& folder);
// Whether the program with this instance id is another one and works in the folder.
bool IsInUseBy(const std::string& folder, const std::string& instanceId);

// Paths of the temporary files that programs of this kind left in the folder when they were killed.
// Those of programs that still run are not among them. Never raises an error.
std::vector<std::string> FindLeftovers(const std::string& folder);

// Removes what FindLeftovers() finds. Never raises an error.
void RemoveLeftovers(const std::string& folder);

// Never raises an error.
void DeleteIfPossible(const std::string& path);

}  // namespace SafeFile
