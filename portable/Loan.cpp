#include "portable/Loan.h"

#include "base/RuntimeError.h"

namespace portable {

namespace {

// Whether both paths name the same folder. Ignores the drive letter, because a memory stick may
// have another letter on another machine.
bool IsSameFolder(const std::string& a, const std::string& b) {
    const auto withoutDrive = [](const std::string& path) {
        return path.size() > 2 && path[1] == ':' ? path.substr(2) : path;
    };
    return withoutDrive(a) == withoutDrive(b);
}

}  // namespace

std::string Loan::PathIn(const std::string& programFolder) {
    return programFolder + "\\Jotwright options.txt";
}

void Loan::Begin() {
    const State state = registry.ReadState();
    if (state.stage == Stage::Lent) {
        FinishOf(state);
    } else if (state.stage == Stage::Own) {
        registry.SaveOwn();
    }
    registry.WriteState({Stage::Saved, folder});
    registry.WriteOptions(Load());
    // If this launcher is killed, the next one stores the options only in the stage Lent.
    if (!mustKeepFile) {
        registry.WriteState({Stage::Lent, folder});
    }
}

void Loan::End() {
    Store(folder);
    registry.WriteState({Stage::Saved, folder});
    registry.RestoreOwn();
    registry.Forget();
}

// Keeps the options of a portable copy whose launcher was killed while the program ran. If the
// folder of that copy is out of reach, its file stays as it was before the program ran.
void Loan::FinishOf(const State& killed) {
    if (IsSameFolder(killed.folder, folder)) {
        Store(folder);
    } else if (files.FolderExists(killed.folder)) {
        Store(killed.folder);
    }
}

Options Loan::Load() {
    const std::string path = PathIn(folder);
    if (!files.FileExists(path)) {
        return {};
    }
    ParsedOptions parsed;
    try {
        parsed = ParseOptions(files.Read(path), folder);
    } catch (const base::RuntimeError&) {
        mustKeepFile = true;
        messages.push_back(
            "The options could not be read from\r\n\r\n" + path +
            "\r\n\r\nJotwright starts with its default options, and does not keep what you change "
            "in them.");
    }
    if (parsed.isDamaged) {
        SetAside(path);
    }
    return parsed.options;
}

void Loan::SetAside(const std::string& path) {
    const std::string aside = path + ".damaged";
    try {
        files.Copy(path, aside);
        messages.push_back("Some options could not be read. A copy of their file is\r\n\r\n" +
                           aside);
    } catch (const base::RuntimeError&) {
        mustKeepFile = true;
        messages.push_back("Some options could not be read from\r\n\r\n" + path +
                           "\r\n\r\nThe file cannot be copied. So it stays as it is, and Jotwright "
                           "does not keep the options that you change.");
    }
}

void Loan::Store(const std::string& programFolder) {
    const std::string path = PathIn(programFolder);
    if (mustKeepFile) {
        return;
    }
    const Options options = registry.ReadOptions();
    const std::string bytes = FormatOptions(options, programFolder);
    try {
        const bool exists = files.FileExists(path);
        if ((!exists && options.empty()) || (exists && files.Read(path) == bytes)) {
            return;
        }
        Write(path, bytes);
    } catch (const base::RuntimeError&) {
        messages.push_back("The options that you have changed could not be kept in\r\n\r\n" + path +
                           "\r\n\r\nThe disk is full or write-protected, or another program is "
                           "using the file.");
    }
}

void Loan::Write(const std::string& path, const std::string& bytes) {
    const std::string temporary = path + ".tmp";
    try {
        files.Write(temporary, bytes, {});
        files.Replace(temporary, path);
    } catch (const base::RuntimeError&) {
        if (files.FileExists(temporary)) {
            try {
                files.Delete(temporary);
            } catch (const base::RuntimeError&) {
                // The next Write() replaces the temporary file.
            }
        }
        throw;
    }
}

}  // namespace portable
