#include <set>

#include "app/frmMain.h"
#include "tests/support/WholeProgram.h"

// If the folder of the notes cannot be used, the program still starts. Each save reports why it
// failed, and the text stays in its window. An exit does not lose it.

using namespace forms;

namespace {

const std::string notesFolder = testing_support::applicationFolder + "\\Notes";

class MissingFolderTest : public testing_support::WholeProgram {
  protected:
    void ExpectEachSaveToFail(const std::string& report) {
        frmNote& note = MakeNote("Dentist");
        user->Type(note.txtNote, "typed");
        Advance(5000);
        const auto expectReport = [&] { ExpectWriteError(report); };
        for (const char* key : {"Save", "Hide", "Save"}) {
            expectReport();
            user->Click(note.tlbMain, key);
            EXPECT_FALSE(stage->HasExpectations());
        }
        expectReport();
        user->CloseBox(note);
        expectReport();
        ClickTrayIcon();
        user->Click(Main().cmdExit);
        EXPECT_FALSE(runtime->HasEnded());
        EXPECT_TRUE(tray.icon.has_value());
        EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed");
    }

    void ExpectSaveToWork() {
        user->CloseBox(Editor("Dentist"));
        EXPECT_NE(FileOf("Dentist").value_or("").find("typed"), std::string::npos);
        ClickTrayIcon();
        user->Click(Main().cmdExit);
        EXPECT_TRUE(runtime->HasEnded());
    }
};

}  // namespace

TEST_F(MissingFolderTest, AFileCalledNotesIsLeftAloneAndEachSaveFails) {
    files.PutFile(notesFolder, "a file");
    StartQuietly();
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_TRUE(Main().cmdMakeNote.enabled());
    ExpectEachSaveToFail("75 - Path/File access error");
    EXPECT_EQ(files.Peek(notesFolder), "a file");
    files.Remove(notesFolder);
    ExpectSaveToWork();
}

TEST_F(MissingFolderTest, AnUnreadableFolderIsReportedAndEachSaveFails) {
    PutNote(Note("Other"));
    files.SetDenied(notesFolder, true);
    std::multiset<std::string> reports;
    stage->improvise.box = [&reports](const BoxRequest& box) {
        reports.insert(box.caption + ": " + box.text);
        return BoxResult::Ok;
    };
    StartQuietly();
    stage->improvise.box = nullptr;
    EXPECT_EQ(reports, (std::multiset<std::string>{
                           "Error Loading Notes Array: Error Number: 70) - Permission denied",
                           "Error Loading File: Permission denied"}));
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_TRUE(Main().cmdMakeNote.enabled());
    ExpectEachSaveToFail("70 - Permission denied");
    files.SetDenied(notesFolder, false);
    ExpectSaveToWork();
}
