#pragma once

#include <functional>
#include <string>

#include "forms/Devices.h"

// Replaces whole files. If the program or the machine stops meanwhile, the old file is unchanged.
// Several machines may share a folder, so the names of temporary files differ from program to
// program.
namespace SafeFile {

struct ReplaceOptions {
    forms::Durability durability = forms::Durability::Flushed;
    // Retry while another program holds a file; see Patience.
    bool isPatient = true;
    // The caller has read the file and knows that its bytes differ.
    bool isKnownToDiffer = false;
    // This program has neither read nor written the old file. The file is put aside with the ending
    // ".replaced" (see PutAside()) when the new bytes are on the disk.
    bool isForeign = false;
};

// Gives the file these bytes. An existing file keeps the letter case of its name. Returns false,
// and writes nothing, if the file held these bytes already. On a RuntimeError the file is
// unchanged, or it is gone and the new bytes stay in a temporary file for SettleLeftovers(). The
// folder must exist.
bool ReplaceFile(const std::string& path, const std::string& bytes,
                 const ReplaceOptions& options = {});

// Moves the file to the Recycle Bin. If there is no Recycle Bin, adds the ending to the file's
// name. The name is shortened if it would be too long, and gets a number if it is in use. If
// another program holds the file, PutAside retries; see Patience. Raises RuntimeErrors.
void PutAside(const std::string& path, const std::string& ending);

// The maximum length of a file's name in this folder, in UTF-16 units. The path of a file with such
// a name works in every program.
std::size_t LongestName(const std::string& folder);
// The beginning of the text, at most this many UTF-16 units long.
std::string Shortened(const std::string& text, std::size_t units);

// The form in which the file system compares names: two names or paths mean the same file if their
// keys are equal.
std::string NameKey(const std::string& name);

// Marks the folder as in use by this program until it ends, so that other programs see it. Repeated
// calls do nothing. Never raises an error.
void MarkInUse(const std::string& folder);
// Whether a program with this instance id, other than this one, works in the folder.
bool IsInUseBy(const std::string& folder, const std::string& instanceId);

// Settles the temporary files that killed copies of the program left in the folder. If the killed
// copy was about to replace a file, that file may be missing: FAT removes the old name before it
// gives the new file its name. missingFileOf gets the bytes of each temporary file, and returns the
// path of the missing file that has to have them. The temporary file gets that name. If the path is
// empty, the temporary file is removed. Files of copies that still run stay. Never raises an error.
void SettleLeftovers(const std::string& folder,
                     const std::function<std::string(const std::string& bytes)>& missingFileOf);

// Never raises an error.
void DeleteIfPossible(const std::string& path);

}  // namespace SafeFile
