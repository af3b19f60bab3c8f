#include "notes/RestoreNotes.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "base/RuntimeError.h"
#include "forms/Application.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"
#include "notes/NoteStore.h"
#include "notes/OpenEditor.h"
#include "notes/RecoveryCopy.h"
#include "notes/UnsavedNotes.h"

namespace StandardCode {

namespace {

void RestoreFile(const forms::FileEntry& file) {
    RestoreNote(Notes().Read(file))->windowState = forms::WindowState::Minimized;
}

void ReportLoadErrors(const std::function<void()>& loading) {
    try {
        loading();
    } catch (const base::RuntimeError& error) {
        forms::MsgBox(error.description(), {}, "Error Loading File");
    }
}

void BringBackUnsaved() {
    UnsavedNotes unsaved;
    for (const RecoveredNote& recovered : RecoveryCopy::Find()) {
        ReportLoadErrors([&] { unsaved.BringBack(recovered); });
    }
}

// Restores the files one after the other, each in a handler of its own, so that thousands of notes
// do not hold up the main window. The user may erase or open notes meanwhile.
void RestoreLater(const std::shared_ptr<std::deque<forms::FileEntry>>& files) {
    forms::Application::Current().RunLater([files] {
        if (files->empty()) {
            ReportLoadErrors(BringBackUnsaved);
            return;
        }
        const forms::FileEntry file = files->front();
        files->pop_front();
        ReportLoadErrors([&] {
            try {
                if (NoteStore::Exists(file.name) && Notes().FindOpen(file.name) == nullptr) {
                    RestoreFile(file);
                }
            } catch (const base::RuntimeError&) {
                files->clear();
                throw;
            }
        });
        RestoreLater(files);
    });
}

}  // namespace

void ReadNotes() {
    forms::SetMousePointer(forms::MousePointer::Hourglass);
    ReportLoadErrors([] {
        const auto files = NoteStore::List();
        if (files.size() > maximumNotes) {
            RestoreLater(
                std::make_shared<std::deque<forms::FileEntry>>(files.begin(), files.end()));
            return;
        }
        // If a file cannot be restored, the unsaved notes must still be restored.
        ReportLoadErrors([&files] { std::ranges::for_each(files, RestoreFile); });
        BringBackUnsaved();
    });
}

}  // namespace StandardCode
