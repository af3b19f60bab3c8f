#include "tests/long/Trouble.h"

#include <optional>
#include <utility>

#include "base/RuntimeError.h"
#include "notes/NoteFile.h"
#include "tests/support/Note.h"

namespace long_tests {

void Trouble::AddTo(Choices& choices) {
    const auto add = [&](const char* what, std::function<void()> act) {
        choices.push_back({1, what, [this, act = std::move(act)] {
                               isOn = hasBegun = true;
                               act();
                           }});
    };
    add("the disk is full",
        [this] { files.SetFreeSpace(static_cast<std::uint64_t>(random.Below(300))); });
    add("the folder is read-only", [this] { files.SetReadOnly(notesFolder, true); });
    add("a file is held", [this] {
        if (const std::string path = AnyFile(); !path.empty()) {
            files.SetDenied(path, true);
        }
    });
    add("a step will fail", [this] {
        const base::ErrorNumber errors[] = {
            base::ErrorNumber::DiskFull, base::ErrorNumber::PermissionDenied,
            base::ErrorNumber::DeviceIoError, base::ErrorNumber::PathNotFound};
        files.FailAt(1 + random.Below(12), errors[random.Below(4)]);
    });
    add("the printer and the shell fail", [this] {
        printer.FailAt(1 + random.Below(5));
        shell.result = 2;
    });
    add("somebody removes a note", [this] {
        hasChangedNotes = true;
        if (const std::string path = AnyFile(); !path.empty()) {
            files.Remove(path);
        }
    });
    add("somebody puts a note there", [this] {
        hasChangedNotes = true;
        const std::string title = "Put " + std::to_string(random.Below(20));
        files.PutFile(notesFolder + '\\' + title + ".txt",
                      NoteFile::Encode(testing_support::Note(title)));
    });
    add("somebody damages a note", [this] {
        hasChangedNotes = true;
        if (const std::string path = AnyFile(); path.ends_with(".txt")) {
            const std::string bytes = files.Peek(path).value_or("");
            files.PutFile(path, bytes.substr(0, bytes.size() / 2));
        }
    });
}

std::string Trouble::AnyFile() {
    const auto names = files.Names(notesFolder);
    return names.empty()
               ? std::string()
               : notesFolder + '\\' +
                     names[static_cast<std::size_t>(random.Below(static_cast<int>(names.size())))];
}

void Trouble::End() {
    isOn = false;
    files.ClearFaults();
    files.SetFreeSpace(std::nullopt);
    if (files.FolderExists(notesFolder)) {
        files.SetReadOnly(notesFolder, false);
        for (const std::string& name : files.Names(notesFolder)) {
            files.SetDenied(notesFolder + '\\' + name, false);
            files.SetReadOnly(notesFolder + '\\' + name, false);
        }
    }
    printer.Repair();
    shell.error.reset();
    shell.result = 33;
}

void Trouble::RemoveDamaged() {
    for (const std::string& name : files.Names(notesFolder)) {
        const std::string path = notesFolder + '\\' + name;
        StandardCode::NoteRecord record;
        try {
            if (name.ends_with(".txt")) {
                NoteFile::Decode(files.Peek(path).value_or(""), record);
            }
        } catch (const base::RuntimeError&) {
            files.Remove(path);
        }
    }
}

}  // namespace long_tests
