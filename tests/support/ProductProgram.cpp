#include "tests/support/ProductProgram.h"

#include <utility>

#include "notes/NoteFile.h"
#include "notes/NoteStore.h"
#include "notes/frmNote.h"

namespace testing_support {

using forms::BoxIcon;
using forms::BoxResult;

std::string ProductProgram::PathOf(const std::string& title) {
    return applicationFolder + "\\Notes\\" + title + ".txt";
}

void ProductProgram::PutNote(const StandardCode::NoteRecord& record) {
    files.PutFile(PathOf(record.Title), NoteFile::Encode(record));
}

void ProductProgram::PutNoteAs(const std::string& fileName,
                               const StandardCode::NoteRecord& record) {
    files.PutFile(applicationFolder + "\\Notes\\" + fileName, NoteFile::Encode(record));
}

void ProductProgram::PutNoteWithBadDate(const std::string& title) {
    files.PutFile(PathOf(title),
                  '"' + title + "\",\"text\",#2004-02-30#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
}

std::optional<std::string> ProductProgram::FileOf(const std::string& title) const {
    return files.Peek(PathOf(title));
}

void ProductProgram::CloseEditors() {
    const auto& open = StandardCode::Notes().OpenNotes();
    while (!open.empty()) {
        user->CloseBox(StandardCode::WindowOf(*open.front()));
    }
}

void ProductProgram::ExpectWriteError(const std::string& text, Script during) {
    ExpectMessage(text, "WriteNote Sub Error", BoxIcon::None, std::move(during));
}

void ProductProgram::ExpectLoadError(const std::string& description) {
    ExpectMessage(description, "Error Loading File", BoxIcon::None);
}

void ProductProgram::ExpectNotesArrayError(const std::string& text) {
    ExpectMessage(text, "Error Loading Notes Array", BoxIcon::None);
}

void ProductProgram::ExpectSaved(const std::string& titleInCapitals) {
    ExpectMessage(titleInCapitals + " has been saved.           ", "", BoxIcon::Information);
}

void ProductProgram::ExpectSaveQuestion(BoxResult answer, Script during) {
    ExpectQuestion(" Would you like to save changes?     ", "Save Changes?", BoxIcon::Question,
                   answer, std::move(during));
}

void ProductProgram::ExpectKillNoteQuestion(const std::string& titleInCapitals, BoxResult answer,
                                            Script during) {
    stage->ExpectBox("Are you sure you would like to erase " + titleInCapitals + "?              ",
                     "Kill Note", BoxIcon::Information, forms::BoxButtons::YesNo, answer,
                     BoxResult::No, std::move(during));
}

void ProductProgram::ExpectDeletingNoteQuestion(const std::string& titleInCapitals,
                                                BoxResult answer) {
    ExpectQuestion("Would you like to erase        \r\n           " + titleInCapitals + "?       ",
                   "Deleting Note", BoxIcon::Critical, answer);
}

void ProductProgram::ExpectEraseNoteQuestion(BoxResult answer, Script during) {
    ExpectQuestion("Would you like to erase this note?", " Erase Note?", BoxIcon::Question, answer,
                   std::move(during));
}

void ProductProgram::ExpectEditorAlarm(Script during) {
    ExpectMessage("           Turn Off Alarm?", "Jotwright Audio Alarm", BoxIcon::None,
                  std::move(during));
}

void ProductProgram::ExpectDisplayAlarm(Script during) {
    ExpectMessage("      Turn Off Alarm?       ", "Jotwright Audio Alarm", BoxIcon::Information,
                  std::move(during));
}

void ProductProgram::ExpectDailyAlarm(const std::string& message, Script during) {
    ExpectMessage("Message for Friday               \r\n\r\n" + message, "Jotwright Daily Alarm",
                  BoxIcon::Information, std::move(during));
}

void ProductProgram::ExpectTimeIsUp(Script during) {
    ExpectMessage("          Time Is Up        ", "Jotwright Audio Alarm", BoxIcon::Critical,
                  std::move(during));
}

void ProductProgram::ExpectMaximumReached(Script during) {
    ExpectMessage(
        "The maximum number of 100 notes has been reached.\r\n\r\n"
        "Exsiting notes will have to be deleted before more can be created.\r\n ",
        "Jotwright: Maximum Notes Reached", BoxIcon::Information, std::move(during));
}

void ProductProgram::ExpectPrintError() {
    ExpectMessage(
        "         Jotwright encountered a printing error. \r\n"
        "Please make sure printer is turned on and try again.",
        "Print Error", BoxIcon::None);
}

}  // namespace testing_support
