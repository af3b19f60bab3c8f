#include "app/SafeFile.h"

#include <vector>

#include "forms/Devices.h"
#include "forms/RuntimeError.h"

namespace SafeFile {

namespace {

// Short, whatever the name of the file is that it stands for: a name beside a long title must not
// be longer than the system takes.
constexpr const char* temporaryPrefix = "~Jotwright";
constexpr const char* temporarySuffix = ".tmp";
constexpr int temporaryNames = 99;

forms::FileSystem& Files() { return *forms::Machine().files; }

bool SameName(const std::string& a, const std::string& b) {
    forms::Locale& locale = *forms::Machine().locale;
    return locale.ToUpper(a) == locale.ToUpper(b);
}

bool HoldsAlready(const std::string& path, const std::string& bytes) {
    try {
        return Files().FileExists(path) && Files().Read(path) == bytes;
    } catch (const forms::RuntimeError&) {
        return false;  // the writing finds out what is wrong
    }
}

// A leftover that cannot be removed must not stand in the way for ever.
std::string FreeTemporaryPath(const std::string& folder) {
    std::string path;
    for (int i = 1; i <= temporaryNames; ++i) {
        path = folder + '\\' + temporaryPrefix + std::to_string(i) + temporarySuffix;
        if (!Files().FileExists(path) && !Files().FolderExists(path)) {
            break;
        }
    }
    return path;
}

void DeleteIfPossible(const std::string& path) {
    try {
        if (Files().FileExists(path)) {
            Files().Delete(path);
        }
    } catch (const forms::RuntimeError&) {
        // The next start tries again.
    }
}

}  // namespace

bool ReplaceFile(const std::string& path, const std::string& bytes) {
    if (HoldsAlready(path, bytes)) {
        return false;
    }
    const std::string folder = path.substr(0, path.find_last_of('\\'));
    // Renaming over a file would give it the letters of the new name.
    const std::string target = folder + '\\' + Files().NameOnDisk(path);
    const std::string temporary = FreeTemporaryPath(folder);
    try {
        Files().WriteThrough(temporary, bytes);
        Files().Replace(temporary, target);
    } catch (const forms::RuntimeError&) {
        DeleteIfPossible(temporary);
        throw;
    }
    return true;
}

void RemoveLeftovers(const std::string& folder) {
    std::vector<forms::FileEntry> entries;
    try {
        entries = Files().List(folder, temporarySuffix);
    } catch (const forms::RuntimeError&) {
        return;  // whoever reads the folder reports it
    }
    for (const forms::FileEntry& entry : entries) {
        if (SameName(entry.name.substr(0, std::string(temporaryPrefix).size()), temporaryPrefix)) {
            DeleteIfPossible(folder + '\\' + entry.name);
        }
    }
}

}  // namespace SafeFile
