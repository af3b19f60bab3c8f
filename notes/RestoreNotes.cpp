#include "notes/RestoreNotes.h"

#include <functional>
#include <vector>

#include "base/RuntimeError.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"
#include "notes/NoteStore.h"
#include "notes/OpenEditor.h"
#include "notes/RecoveryCopy.h"
#include "notes/UnsavedNotes.h"

namespace StandardCode {

namespace {

void RestoreFiles(const std::vector<forms::FileEntry>& files) {
    for (const forms::FileEntry& file : files) {
        RestoreNote(Notes().Read(file))->windowState = forms::WindowState::Minimized;
    }
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

}  // namespace

void ReadNotes() {
    forms::SetMousePointer(forms::MousePointer::Hourglass);
    ReportLoadErrors([] {
        const auto files = NoteStore::List();
        // If a file cannot be restored, the unsaved notes must still be restored.
        ReportLoadErrors([&files] { RestoreFiles(files); });
        BringBackUnsaved();
    });
}

}  // namespace StandardCode
