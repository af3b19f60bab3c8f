#include "notes/UnsavedNotes.h"

#include <algorithm>
#include <memory>
#include <string>

#include "app/SafeFile.h"
#include "base/RuntimeError.h"
#include "notes/EditedNote.h"
#include "notes/NoteStore.h"
#include "notes/OpenEditor.h"
#include "notes/RecoveryCopy.h"
#include "notes/frmNote.h"

namespace StandardCode {

namespace {

// Whether no saved text can be lost: either the file is missing, or it has the same contents as
// when the copy was made.
bool IsAsKnown(const RecoveredNote& recovered, const std::string& file) {
    const auto held = NoteStore::FingerprintOf(file);
    return !held ||
           (recovered.isWhole && held != NoteStore::unknownContents && held == recovered.base);
}

// "<title> (recovered" followed by the ending. The title is shortened if the name of its file
// would be too long.
std::string TitleBeside(const std::string& title, const std::string& ending) {
    const std::string addition = " (recovered";
    constexpr std::size_t longestEnding = 6;  // " 9999)"
    const std::size_t most = SafeFile::LongestName(NotesFolder()) -
                             NoteStore::FileNameFor(addition).size() - longestEnding;
    return SafeFile::Shortened(title, most) + addition + ending;
}

// Whether the note was saved after all, for example because an earlier start restored it and
// could not remove the copy.
bool IsInAFile(const RecoveredNote& recovered) {
    const auto& open = Notes().OpenNotes();
    return std::any_of(open.begin(), open.end(), [&](const EditedNote* note) {
        NoteRecord saved = note->SavedRecord();
        const std::string& title = recovered.record.Title;
        const bool isOfThisTitle =
            saved.Title == title || saved.Title.starts_with(TitleBeside(title, ""));
        saved.Title = title;
        return isOfThisTitle && !note->File().empty() &&
               (recovered.isTextOnly ? saved.Text == recovered.record.Text
                                     : saved == recovered.record);
    });
}

frmNote* Shown(const std::shared_ptr<frmNote>& editor) {
    editor->edited.MarkSaved();
    editor->Show();
    return editor.get();
}

// The editor for a note that was never saved. Null if the file named after its title was created or
// changed after the copy was made.
frmNote* NewEditor(const RecoveredNote& recovered) {
    const std::string file = NoteStore::FileNameFor(recovered.record.Title);
    return IsAsKnown(recovered, file) ? Shown(OpenNewEditor(recovered.record.Title)) : nullptr;
}

frmNote* OpenFile(const std::string& file) {
    try {
        return RestoreNote(NoteStore::Read(file)).get();
    } catch (const base::RuntimeError&) {
        return nullptr;  // the file cannot be read, but the unsaved note can
    }
}

bool IsInUse(const std::string& title) {
    const auto titles = NoteTitles();
    return Notes().IsTaken(title) || NoteStore::Exists(NoteStore::FileNameFor(title)) ||
           std::find(titles.begin(), titles.end(), title) != titles.end();
}

frmNote* EditorBeside(const RecoveredNote& recovered) {
    const std::string& title = recovered.record.Title;
    std::string free = TitleBeside(title, ")");
    for (int i = 2; IsInUse(free); ++i) {
        free = TitleBeside(title, ' ' + std::to_string(i) + ')');
    }
    return Shown(OpenNewEditor(free));
}

RecoveredNote Titled(RecoveredNote recovered, const std::string& title) {
    recovered.record.Title = title;
    return recovered;
}

}  // namespace

void UnsavedNotes::BringBack(const RecoveredNote& recovered) {
    // Load the icon first: without it, the editor could not show the alarm, and the copy would lose
    // the alarm.
    const forms::Picture alarmIcon =
        recovered.record.AlarmState == "1" ? NoteAlarm::Icon() : forms::Picture{};
    frmNote* editor = recovered.file.empty() ? NewEditor(recovered) : EditorOf(recovered);
    if (editor == nullptr && IsInAFile(recovered)) {
        SafeFile::DeleteIfPossible(recovered.path);
        return;
    }
    if (editor == nullptr) {
        editor = EditorBeside(recovered);
    }
    editor->TakeRecovered(Titled(recovered, editor->caption), alarmIcon);
    filled.insert(editor);
}

frmNote* UnsavedNotes::EditorOf(const RecoveredNote& recovered) const {
    if (!NoteStore::Exists(recovered.file)) {
        const std::string& title = recovered.record.Title;
        const bool isFree = !NoteStore::Exists(NoteStore::FileNameFor(title));
        return isFree ? Shown(OpenNewEditor(title)) : nullptr;
    }
    if (!IsAsKnown(recovered, recovered.file)) {
        return nullptr;
    }
    if (const EditedNote* open = Notes().FindOpen(recovered.file)) {
        frmNote& editor = WindowOf(*open);
        return filled.contains(&editor) ? nullptr : &editor;
    }
    return OpenFile(recovered.file);  // RestoreFiles() stopped at an error before this file
}

}  // namespace StandardCode
