#include "app/Exit.h"

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

#include "forms/Application.h"
#include "notes/EditedNote.h"
#include "notes/NoteEditor.h"
#include "notes/NoteStore.h"
#include "notes/frmNote.h"

namespace StandardCode {

bool CloseAllBut(const forms::Form& main) {
    if (auto* note = forms::LoadedDefault<frmNote>()) {
        note->Unload();
    }
    const NoteStore::Quiet quiet(Notes());
    // A window that closes may close or load others, so the list of forms changes during this loop.
    std::vector<const forms::Form*> kept{&main};
    for (;;) {
        const auto& loaded = forms::Application::Current().LoadedForms();
        const auto next = std::find_if(loaded.begin(), loaded.end(), [&kept](const auto& form) {
            return std::find(kept.begin(), kept.end(), form.get()) == kept.end();
        });
        if (next == loaded.end()) {
            break;
        }
        // A copy, because the list changes while the form unloads.
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        const std::shared_ptr<forms::Form> form = *next;
        if (!form->Unload()) {
            kept.push_back(form.get());
        }
    }
    // True if a window that is not an editor refused to close.
    const std::vector<EditedNote*> open = Notes().OpenNotes();
    bool losesText = kept.size() > open.size() + 1;
    for (EditedNote* note : open) {
        losesText = !note->KeepForNextStart() || losesText;
    }
    return !losesText;
}

void SaveOpenNotes() {
    for (const EditedNote* note : Notes().OpenNotes()) {
        try {
            note->Editor().SaveBeforeTheEnd();
        } catch (const std::bad_alloc&) {
            // If one note is too large to be saved, save the others.
        }
    }
}

}  // namespace StandardCode
