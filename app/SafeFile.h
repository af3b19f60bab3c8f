#pragma once

#include <functional>
#include <string>

#include "forms/Devices.h"

// Replaces whole files. If the program or the machine stops meanwhile, the old file is unchanged.
// Several machines may share a folder, so the names of a program's temporary files contain its
// instance id.
namespace SafeFile {

struct ReplaceOptions {
    forms::Durability durability = forms::Durability::Flushed;
    // Retry while another program holds a file; see Patience.
    bool isPatient = true;
    // The caller has read the file, and its bytes differ from the new ones.
    bool isKnownToDiffer = false;
    // This program has neither read nor written the present contents of the file. ReplaceFile first
    // writes the new bytes to a temporary file, then puts the old file aside with the ending
    // ".replaced"; see PutAside().
    bool isForeign = false;
};

// Creates the file with these bytes, or replaces its contents with them. An existing file keeps the
// letter case of its name. Returns false, and writes nothing, if the file held these bytes already.
// If a RuntimeError is raised, either the file is unchanged, or it is gone and the new bytes stay
// in a temporary file for SettleLeftovers(). The folder must exist.
bool ReplaceFile(const std::string& path, const std::string& bytes,
                 const ReplaceOptions& options = {});

// Moves the file to the Recycle Bin. If there is no Recycle Bin, adds the ending to the file's
// name. The name is shortened if it would be too long, and gets a number if it is in use. If
// another program holds the file, PutAside retries; see Patience. Raises RuntimeErrors.
void PutAside(const std::string& path, const std::string& ending);

// The maximum length of a file's name in this folder, in UTF-16 units, if every program must be
// able to open the file by its path. At least 100, even if the folder's own path is too long for
// that.
std::size_t LongestName(const std::string& folder);
// The beginning of the text, at most this many UTF-16 units long. Does not split a character.
std::string Shortened(const std::string& text, std::size_t units);

// The form in which the file system compares names: two names or paths mean the same file if their
// keys are equal.
std::string NameKey(const std::string& name);

// Marks the folder as in use until this program ends. Other programs see the mark with IsInUseBy().
// Does nothing if the folder is marked already. Never raises an error.
void MarkInUse(const std::string& folder);
// Whether another program with this instance id is running and has marked the folder as in use.
bool IsInUseBy(const std::string& folder, const std::string& instanceId);

// Renames or removes the temporary files that killed programs left in the folder. If a program was
// killed while it replaced a file, that file may be missing: FAT removes the old name before it
// gives the new file its name. missingFileOf gets the bytes of each temporary file, and returns the
// path of the missing file to which they belong. SettleLeftovers renames the temporary file to that
// path. If missingFileOf returns an empty path, SettleLeftovers removes the temporary file. The
// files of programs that still run stay. Never raises an error.
void SettleLeftovers(const std::string& folder,
                     const std::function<std::string(const std::string& bytes)>& missingFileOf);

// Never raises an error.
void DeleteIfPossible(const std::string& path);

}  // namespace SafeFile
