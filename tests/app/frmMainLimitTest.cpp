#include <algorithm>
#include <string>

#include "app/dlgMsgBox.h"
#include "app/frmMain.h"
#include "notes/frmViewNotes.h"
#include "tests/support/WholeProgram.h"

// There are at most a hundred notes.

using namespace forms;

namespace {

class frmMainLimitTest : public testing_support::WholeProgram {
  protected:
    // Titles "Note 1001", "Note 1002" and so on.
    void PutNotes(int count) {
        for (int number = 1; number <= count; ++number) {
            PutNote(Note("Note " + std::to_string(1000 + number)));
        }
    }

    // The user answers every question with Yes and closes every other box with OK.
    void StartWithNotes(int count) {
        PutNotes(count);
        stage->improvise.box = [](const BoxRequest& box) {
            return box.options.buttons == BoxButtons::YesNo ? BoxResult::Yes : BoxResult::Ok;
        };
        StartQuietly();
    }

    // Captions of all boxes so far.
    std::vector<std::string> Captions() const {
        std::vector<std::string> captions;
        for (const BoxRequest& box : stage->Boxes()) {
            captions.push_back(box.caption);
        }
        return captions;
    }

    void ExpectRoomForNewNotes(bool isRoom) {
        EXPECT_EQ(Main().cmdMakeNote.enabled(), isRoom);
        EXPECT_EQ(Main().txtNoteTitle.enabled(), isRoom);
    }

    // Opens the panel and checks its button and its label.
    void ExpectPanel(const std::string& total, bool isRoom) {
        if (!Main().IsShownOnStage()) {
            ClickTrayIcon();
        }
        user->Click(Main().cmdViewNotes);
        EXPECT_EQ(Default<frmViewNotes>().lblTotalNotes.caption(), total);
        EXPECT_EQ(Default<frmViewNotes>().cmdNew.enabled(), isRoom);
    }

    void EraseFirstInPanel() {
        user->Select(Default<frmViewNotes>().lvwNotes, 0);
        user->Click(Default<frmViewNotes>().cmdRemove);
    }
};

const std::string loadFailed = "Error Loading Notes Array";
const std::string maximumCaption = "Jotwright: Maximum Notes Reached";
constexpr const char* maximumText =
    "The maximum number of 100 notes has been reached.\r\n\r\n"
    "Exsiting notes will have to be deleted before more can be created.\r\n ";

}  // namespace

TEST_F(frmMainLimitTest, BelowTheLimitAClickEnablesTheTitleBoxBeforeTheTitleIsChecked) {
    StartQuietly();
    user->Type(Main().txtNoteTitle, "2004");
    Main().txtNoteTitle.enabled = false;
    stage->ExpectModal<dlgMsgBox>([this](dlgMsgBox& box) {
        EXPECT_TRUE(Main().txtNoteTitle.enabled);
        user->Click(box.cmdOk);
    });
    user->Click(Main().cmdMakeNote);
}

TEST_F(frmMainLimitTest, WithAHundredNotesTheLimitIsReportedAtTheStart) {
    PutNotes(100);
    settings.values[{"Options", "StartCookoo"}] = "1";
    ExpectMaximumReached([this] {
        // The notes are restored. The cuckoo and the tray icon come later.
        EXPECT_EQ(CountVisible<frmNote>(), 100);
        EXPECT_FALSE(Main().tmrCooKoo.enabled);
        EXPECT_FALSE(tray.icon.has_value());
    });
    StartQuietly();
    EXPECT_TRUE(Main().tmrCooKoo.enabled);
    EXPECT_TRUE(tray.icon.has_value());
    EXPECT_EQ(StandardCode::Shared().NoteCount, 100);
    EXPECT_FALSE(Main().cmdMakeNote.enabled);
    EXPECT_FALSE(Main().txtNoteTitle.enabled);
    EXPECT_EQ(CountVisible<frmNote>(), 100);
}

TEST_F(frmMainLimitTest, AtTheLimitAClickOnTheEnabledButtonStillMakesTheNote) {
    PutNotes(100);
    ExpectMaximumReached();
    StartQuietly();
    Main().cmdMakeNote.enabled = true;
    Main().txtNoteTitle.enabled = true;
    user->Type(Main().txtNoteTitle, "One more");
    ExpectMaximumReached();
    user->Click(Main().cmdMakeNote);
    EXPECT_FALSE(Main().cmdMakeNote.enabled);
    EXPECT_FALSE(Main().txtNoteTitle.enabled);
    EXPECT_NE(FindWindow<frmNote>("One more"), nullptr);
}

TEST_F(frmMainLimitTest, SavingTheHundredthNoteDisablesMakeNote) {
    PutNotes(99);
    StartQuietly();
    auto& note = MakeNote("The hundredth");
    EXPECT_TRUE(Main().cmdMakeNote.enabled);
    user->CloseBox(note);
    EXPECT_EQ(StandardCode::Shared().NoteCount, 100);
    EXPECT_FALSE(Main().cmdMakeNote.enabled);
    EXPECT_FALSE(Main().txtNoteTitle.enabled);
}

TEST_F(frmMainLimitTest, WithAHundredAndOneFilesTheLimitAppliesAndEachActionReportsOnce) {
    StartWithNotes(101);
    std::vector<std::string> expected{loadFailed, maximumCaption};
    EXPECT_EQ(Captions(), expected);
    EXPECT_EQ(stage->Boxes().front().text, "Error Number: 9) - Subscript out of range");
    ExpectRoomForNewNotes(false);
    EXPECT_EQ(StandardCode::Shared().NoteCount, 100);

    ExpectPanel("Total Notes: 100 ( Maximum Reached )", false);
    expected.push_back(loadFailed);
    EXPECT_EQ(Captions(), expected);

    Advance(200);  // the minimised notes appear after the main window
    user->Restore(Editor("Note 1001"));
    user->Type(Editor("Note 1001").txtNote, "changed text");
    StandardCode::Shared().ControlPanelMode = false;
    user->CloseBox(Editor("Note 1001"));
    expected.push_back(loadFailed);
    EXPECT_EQ(Captions(), expected);

    Start([this] { Main().Unload(); });
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_EQ(Captions(), expected);
}

TEST_F(frmMainLimitTest, BeforeTheMainWindowOnlyTheFilesOfTheSlotsAreRead) {
    StartWithNotes(300);
    EXPECT_TRUE(Main().IsShownOnStage());
    const auto reads = [this] {
        return std::ranges::count_if(
            files.Log(), [](const std::string& entry) { return entry.starts_with("read "); });
    };
    EXPECT_EQ(reads(), 100);
    ExpectPanel("Total Notes: 100 ( Maximum Reached )", false);
    EXPECT_EQ(Default<frmViewNotes>().lvwNotes.Rows().size(), 300U);
    EXPECT_EQ(reads(), 300);
    Advance(200);
    EXPECT_EQ(StandardCode::Notes().OpenNotes().size(), 300U);
    EXPECT_EQ(reads(), 300);
}

TEST_F(frmMainLimitTest, TwoNewNotesBesideNinetyNineReachTheLimitAsAtTheStart) {
    StartWithNotes(99);
    auto& first = MakeNote("A");
    auto& second = MakeNote("B");
    ExpectRoomForNewNotes(true);
    user->Click(first.tlbMain, "Hide");
    EXPECT_TRUE(stage->Boxes().empty());
    ExpectRoomForNewNotes(false);
    user->Click(second.tlbMain, "Hide");
    std::vector<std::string> expected{loadFailed};
    EXPECT_EQ(Captions(), expected);
    EXPECT_EQ(stage->Boxes().front().text, "Error Number: 9) - Subscript out of range");
    EXPECT_EQ(StandardCode::Shared().NoteCount, 100);
    EXPECT_EQ(StandardCode::Shared().NotesArray[100].Title, "Note 1098");
    ExpectRoomForNewNotes(false);
    EXPECT_TRUE(FileOf("A").has_value());
    EXPECT_TRUE(FileOf("B").has_value());

    // The panel is loaded, because closing an editor loads it.
    ExpectPanel("Total Notes: 100 ( Maximum Reached )", false);
    EXPECT_EQ(Captions(), expected);

    // The limit applies until enough notes are erased.
    EraseFirstInPanel();
    expected.emplace_back("Deleting Note");
    EXPECT_EQ(Captions(), expected);
    EXPECT_EQ(Default<frmViewNotes>().lblTotalNotes.caption(),
              "Total Notes: 100 ( Maximum Reached )");
    EXPECT_FALSE(Default<frmViewNotes>().cmdNew.enabled());
    ExpectRoomForNewNotes(false);
    EraseFirstInPanel();
    expected.emplace_back("Deleting Note");
    EXPECT_EQ(Captions(), expected);
    EXPECT_EQ(Default<frmViewNotes>().lblTotalNotes.caption(), "Total Notes: 99");
    EXPECT_TRUE(Default<frmViewNotes>().cmdNew.enabled());
    ExpectRoomForNewNotes(true);
}

TEST_F(frmMainLimitTest, AboveTheLimitAClickOnTheEnabledButtonReportsTheLimit) {
    StartWithNotes(99);
    auto& first = MakeNote("A");
    auto& second = MakeNote("B");
    user->Click(first.tlbMain, "Hide");
    user->Click(second.tlbMain, "Hide");
    ClickTrayIcon();
    Main().cmdMakeNote.enabled = true;
    Main().txtNoteTitle.enabled = true;
    user->Type(Main().txtNoteTitle, "One more");
    user->Click(Main().cmdMakeNote);
    EXPECT_EQ(Captions(), (std::vector<std::string>{loadFailed, maximumCaption}));
    EXPECT_EQ(stage->Boxes().back().text, maximumText);
    ExpectRoomForNewNotes(false);
    EXPECT_NE(FindWindow<frmNote>("One more"), nullptr);
}
