#include <functional>
#include <string>
#include <vector>

#include "app/frmMain.h"
#include "forms/Gestures.h"
#include "tests/support/WholeProgram.h"

using namespace forms;

namespace {

class frmMainExitTest : public testing_support::WholeProgram {
  protected:
    // Opens a note with unsaved text, which asks whether to save it when it is closed.
    frmNote& OpenUnsavedNote() {
        StartQuietly();
        auto& note = MakeNote("Dentist");
        StandardCode::Shared().ControlPanelMode = true;
        user->Type(note.txtNote, "text");
        return note;
    }
    void ExpectTextAtNextStart() {
        Restart();
        StartQuietly();
        EXPECT_EQ(Editor("Dentist").txtNote.text(), "text");
    }
    // Opens the alarm display of a note.
    frmDisplayNote& OpenDisplay() {
        PutNote(Note("Dentist").WithAlarmAt(9, 0, 10));
        StartQuietly();
        user->CloseBox(Editor("Dentist"));
        Advance(12'000);
        return *FindWindow<frmDisplayNote>("Dentist");
    }
};

}  // namespace

TEST_F(frmMainExitTest, TheButtonAndTheMenusEndTheProgram) {
    const std::vector<std::function<void()>> ways{
        [this] { user->Click(Main().cmdExit); },
        [this] { user->Choose(Main().mnuFileExit); },
        [this] { ChooseFromTrayMenu("mnuExit"); },
    };
    for (const auto& leave : ways) {
        StartQuietly();
        leave();
        EXPECT_TRUE(runtime->HasEnded());
        EXPECT_TRUE(stage->HasQuit());
        EXPECT_FALSE(tray.icon.has_value());
        Restart();
    }
}

TEST_F(frmMainExitTest, TheIconIsRemovedAtBothStepsOfTheExit) {
    StartQuietly();
    const auto record = tray.icon;
    ASSERT_TRUE(record);
    tray.log.clear();
    user->Click(Main().cmdExit);
    ASSERT_EQ(tray.log.size(), 2U);
    for (const auto& entry : tray.log) {
        EXPECT_FALSE(entry.add);
        EXPECT_EQ(entry.record.iconId, record->iconId);
        EXPECT_EQ(entry.record.owner, record->owner);
        EXPECT_EQ(entry.record.tip, record->tip);
    }
    EXPECT_TRUE(tray.log[0].succeeded);
}

TEST_F(frmMainExitTest, TheIconIsRemovedBeforeTheOtherWindowsGo) {
    OpenUnsavedNote();
    ClickTrayIcon();
    ExpectSaveQuestion(BoxResult::Yes, [this] { EXPECT_FALSE(tray.icon.has_value()); });
    user->Click(Main().cmdExit);
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(frmMainExitTest, NotesAreClosedInTheOrderInWhichTheyWereOpened) {
    StartQuietly();
    for (const char* title : {"Zebra", "Ape", "Lion"}) {
        user->Type(MakeNote(title).txtNote, "text");
    }
    ClickTrayIcon();
    files.ClearLog();
    user->Click(Main().cmdExit);
    std::vector<std::string> saved;
    for (const std::string& call : files.Log()) {
        if (call.starts_with("replace ") && call.ends_with(".txt")) {
            saved.push_back(call.substr(call.rfind('\\') + 1));
        }
    }
    EXPECT_EQ(saved, (std::vector<std::string>{"Zebra.txt", "Ape.txt", "Lion.txt"}));
}

TEST_F(frmMainExitTest, AMinimizedMainWindowIsMaximizedByTheExit) {
    StartQuietly();
    user->Minimize(Main());
    ChooseFromTrayMenu("mnuExit");
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_EQ(Main().windowState(), WindowState::Maximized);
}

TEST_F(frmMainExitTest, AMainWindowOfNormalSizeKeepsIt) {
    StartQuietly();
    user->CloseBox(Main());
    EXPECT_EQ(Main().windowState(), WindowState::Normal);
}

TEST_F(frmMainExitTest, ExitRemovesTheIconAndClosesEveryWindow) {
    PutNote(Note("Restored"));
    StartQuietly();
    auto& note = MakeNote("Dentist");
    user->Type(note.txtNote, "text");
    ClickTrayIcon();
    user->CloseBox(Main());
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_FALSE(tray.icon.has_value());
    EXPECT_TRUE(FileOf("Dentist").has_value());
    EXPECT_TRUE(StandardCode::NoteTitles().empty());
    for (const auto& form : runtime->LoadedForms()) {
        EXPECT_FALSE(form->IsVisible());
    }
}

TEST_F(frmMainExitTest, ExitFromTheTrayWhileABoxIsOpen) {
    StartQuietly();
    user->Click(Main().cmdHideMe);
    shell.result = 0;
    stage->ExpectPopup("mnuPop", "mnuWebSite");
    ExpectMessage("Unable to open file!", "Attention", BoxIcon::Exclamation, [this] {
        ChooseFromTrayMenu("mnuExit");
        EXPECT_TRUE(runtime->HasEnded());
    });
    RightClickTrayIcon();
    EXPECT_FALSE(tray.icon.has_value());
}

TEST_F(frmMainExitTest, ANoteThatCannotBeSavedStopsTheExit) {
    StartQuietly();
    auto& note = MakeNote("Dentist");
    user->Type(note.txtNote, "must not be lost");
    files.SetReadOnly("C:\\Jotwright\\Notes", true);
    ClickTrayIcon();
    ExpectWriteError("75 - Path/File access error");
    user->Click(Main().cmdExit);
    EXPECT_FALSE(runtime->HasEnded());
    EXPECT_TRUE(tray.icon.has_value());
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "must not be lost");
    files.SetReadOnly("C:\\Jotwright\\Notes", false);
    user->Click(Main().cmdExit);
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_TRUE(FileOf("Dentist").has_value());
}

TEST_F(frmMainExitTest, TheEndOfTheSessionSavesAndAsksNothing) {
    StartQuietly();
    auto& note = MakeNote("Dentist");
    user->Type(note.txtNote, "text");
    StandardCode::Shared().ControlPanelMode = true;
    gestures::EndSession();
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_TRUE(FileOf("Dentist").has_value());
    EXPECT_FALSE(tray.icon.has_value());
}

TEST_F(frmMainExitTest, AnExitWhileANoteAsksKeepsItsTextForTheNextStart) {
    frmNote& note = OpenUnsavedNote();
    ExpectSaveQuestion(BoxResult::No, [this] {
        ChooseFromTrayMenu("mnuExit");
        EXPECT_TRUE(runtime->HasEnded());
    });
    user->CloseBox(note);
    EXPECT_FALSE(files.FileExists(PathOf("Dentist")));
    ExpectTextAtNextStart();
}

TEST_F(frmMainExitTest, AnExitWaitsForTheAnswerToAnAlarmDisplay) {
    frmDisplayNote& display = OpenDisplay();
    ExpectEraseNoteQuestion(BoxResult::No, [this] {
        ChooseFromTrayMenu("mnuExit");
        EXPECT_FALSE(runtime->HasEnded());
    });
    user->CloseBox(display);
    EXPECT_TRUE(tray.icon.has_value());
    ClickTrayIcon();
    user->Click(Main().cmdExit);
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(frmMainExitTest, TheEndOfTheSessionEndsAnExitThatWaitsForAnAnswer) {
    OpenUnsavedNote();
    ClickTrayIcon();
    ExpectSaveQuestion(BoxResult::No, [this] {
        gestures::EndSession();
        EXPECT_TRUE(runtime->HasEnded());
    });
    user->Click(Main().cmdExit);
    EXPECT_FALSE(tray.icon.has_value());
    ExpectTextAtNextStart();
}

TEST_F(frmMainExitTest, TheEndOfTheSessionKeepsTheTextOfADisplayThatAsks) {
    frmDisplayNote& display = OpenDisplay();
    user->Type(display.lblNoteText, "moved to Friday");
    ExpectEraseNoteQuestion(BoxResult::Yes, [this] {
        gestures::EndSession();
        EXPECT_TRUE(runtime->HasEnded());
    });
    user->CloseBox(display);
    EXPECT_EQ(FileOf("Dentist"),
              "\"Dentist\",\"moved to Friday\",#2004-05-14#,\"#12:00#\",1,12,\"0\",0,\"yes\"\r\n");
}

TEST_F(frmMainExitTest, TheEndOfTheSessionDoesNotWaitForAnAnswer) {
    frmNote& note = OpenUnsavedNote();
    ExpectSaveQuestion(BoxResult::No, [this] {
        gestures::EndSession();
        EXPECT_TRUE(runtime->HasEnded());
    });
    user->CloseBox(note);
    ExpectTextAtNextStart();
}

// With one unreadable file and many open notes, an exit that saves all notes reports nothing more.
TEST_F(frmMainExitTest, TheExitDoesNotReportABadFileOnceForEachNote) {
    for (int number = 1; number <= 10; ++number) {
        PutNote(Note("Note " + std::to_string(1000 + number)));
    }
    PutNoteWithBadDate("Zebra");
    stage->improvise.box = [](const BoxRequest&) { return BoxResult::Ok; };
    StartQuietly();
    // The file is reported twice: once when the array is loaded, and once when the notes are
    // restored.
    EXPECT_EQ(stage->Boxes().size(), 2U);
    for (int number = 1; number <= 10; ++number) {
        frmNote& note = Editor("Note " + std::to_string(1000 + number));
        user->Restore(note);
        user->Type(note.txtNote, "changed");
    }
    const std::size_t before = stage->Boxes().size();
    Start([this] { Main().Unload(); });
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_EQ(stage->Boxes().size(), before);
}

TEST_F(frmMainExitTest, AnAlarmThatIsOnlyInARecoveryCopyRingsAfterTheNextStart) {
    PutNote(Note("Dentist"));
    files.SetReadOnly(PathOf("Dentist"), true);
    StartQuietly();
    frmNote& note = Editor("Dentist");
    user->Restore(note);
    user->Pick(note.dtTime, base::DateTime::FromTime(9, 5, 0));
    user->Click(note.chkAudioAlarm);
    user->Click(note.cmdAlarm);
    ExpectWriteError("75 - Path/File access error");
    user->Click(Main().cmdExit);
    ASSERT_TRUE(runtime->HasEnded());
    const auto saved = FileOf("Dentist");
    ASSERT_TRUE(saved);
    EXPECT_NE(saved->find("\"0\",0,\"yes\""), std::string::npos) << "the alarm is saved";

    Restart();
    StartQuietly();
    EXPECT_EQ(Editor("Dentist").cmdAlarm.caption(), "&Turn Off Alarm");
    user->Minimize(Editor("Dentist"));
    bool hasRung = false;
    ExpectEditorAlarm([&] {
        hasRung = true;
        EXPECT_TRUE(sound.IsPlaying());
        EXPECT_EQ(Now().TimeOnly(), base::DateTime::FromTime(9, 5, 0));
    });
    Advance(300'000);
    EXPECT_TRUE(hasRung);
    EXPECT_EQ(Editor("Dentist").windowState(), WindowState::Normal);
}
