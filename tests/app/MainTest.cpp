#include <algorithm>

#include "app/Main.h"
#include "app/ProductTexts.h"
#include "app/dlgMsgBox.h"
#include "notes/NoteFile.h"
#include "tests/support/WholeProgram.h"

using namespace forms;

namespace {

using MainTest = testing_support::WholeProgram;

const std::string notesFolder = testing_support::applicationFolder + "\\Notes";

}  // namespace

// The start may wait as long as any action of the user.
TEST_F(MainTest, TheStartWaitsOneAndAHalfSecondsForFilesInUse) {
    PutNote(Note("Dentist"));
    files.SetDenied(PathOf("Dentist"), true);
    int pauses = 0;
    system.onPause = [&] {
        if (++pauses == 60) {
            files.SetDenied(PathOf("Dentist"), false);
        }
    };
    StartQuietly();
    EXPECT_EQ(pauses, 60);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "text");
}

TEST_F(MainTest, ASecondCopyShowsThePictureBoxAndChangesNothing) {
    system.previousInstance = true;
    files.ClearLog();
    stage->ExpectModal<dlgMsgBox>([this](dlgMsgBox& box) {
        EXPECT_EQ(box.caption(), "  Jotwright Is Running");
        EXPECT_EQ(box.lblMsg.caption(),
                  "     Jotwright is already running.\r\nClick the Blue 'N' in the system tray.");
        EXPECT_EQ(box.imgMsg.picture().path, "C:\\Jotwright\\logo.ico");
        EXPECT_EQ(runtime->LoadedForms().size(), 1U);
        user->Click(box.cmdOk);
    });
    runtime->Run(StandardCode::Main);
    EXPECT_TRUE(runtime->LoadedForms().empty());
    EXPECT_FALSE(files.FolderExists(notesFolder));
    EXPECT_TRUE(files.Log().empty());
    EXPECT_TRUE(settings.values.empty());
    EXPECT_TRUE(tray.log.empty());
}

TEST_F(MainTest, IfFilesOfTheProgramAreMissingItSaysSoAndChangesNothing) {
    files.Remove(testing_support::applicationFolder + "\\logo.ico");
    files.Remove(testing_support::applicationFolder + "\\mascot.jpg");
    files.ClearLog();
    ExpectMessage(
        "The files that belong to Jotwright are not beside Jotwright.exe.\r\n\r\n"
        "If you started it inside a zip archive, extract the whole archive first: right click the "
        "archive and choose \"Extract All\". Then start Jotwright.exe in the new folder.",
        "Jotwright", BoxIcon::Exclamation);
    runtime->Run(StandardCode::Main);
    EXPECT_TRUE(runtime->LoadedForms().empty());
    EXPECT_TRUE(files.Log().empty());
    EXPECT_TRUE(tray.log.empty());
}

TEST_F(MainTest, AMissingNotesFolderIsMade) {
    Start(StandardCode::Main);
    EXPECT_TRUE(files.FolderExists(notesFolder));
}

TEST_F(MainTest, AnExistingNotesFolderAndItsFilesAreLeftAlone) {
    PutNote(Note("Dentist"));
    files.PutFile(notesFolder + "\\picture.png", "not a note");
    const auto before = FileOf("Dentist");
    StartQuietly();
    EXPECT_EQ(FileOf("Dentist"), before);
    EXPECT_EQ(files.Peek(notesFolder + "\\picture.png"), "not a note");
}

TEST_F(MainTest, AFolderThatCannotBeMadeEndsTheProgramWithTheReport) {
    files.SetReadOnly(testing_support::applicationFolder, true);
    ExpectRunTimeError(75, "Path/File access error");
    Start(StandardCode::Main);
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(MainTest, TheSharedFlagsStartClear) {
    StandardCode::Shared().AlarmSounding = true;
    StandardCode::Shared().RingingSounds = {"left over.wav"};
    StandardCode::Shared().ControlPanelMode = true;
    Start(StandardCode::Main);
    EXPECT_FALSE(StandardCode::Shared().AlarmSounding);
    EXPECT_TRUE(StandardCode::Shared().RingingSounds.empty());
    EXPECT_FALSE(StandardCode::Shared().ControlPanelMode);
    EXPECT_TRUE(StandardCode::NoteTitles().empty());
}

TEST_F(MainTest, TheSplashComesFirstAndTheMainWindowASecondLater) {
    settings.values[{"Startup", "View Tips"}] = "1";
    Start(StandardCode::Main);
    EXPECT_TRUE(Default<frmSplash>().IsShownOnStage());
    EXPECT_EQ(LoadedDefault<frmMain>(), nullptr);
    EXPECT_FALSE(tray.icon.has_value());
    Advance(999);
    EXPECT_EQ(LoadedDefault<frmMain>(), nullptr);
    Advance(1);
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_TRUE(tray.icon.has_value());
    EXPECT_EQ(LoadedDefault<frmSplash>(), nullptr);
}

TEST_F(MainTest, ANewUserSeesTheTips) {
    stage->ExpectModal<frmTip>([this](frmTip& tips) {
        EXPECT_TRUE(Main().IsShownOnStage());
        user->CloseBox(tips);
    });
    Start(StandardCode::Main);
    Advance(1000);
}

TEST_F(MainTest, ANewUserHasTheDefaults) {
    StartQuietly();
    EXPECT_EQ(StandardCode::Shared().AlarmSoundPath, "C:\\Jotwright\\Alarm buzzer.wav");
    EXPECT_FALSE(Main().tmrCooKoo.enabled);
    EXPECT_FALSE(Main().lblCooKoo.visible);
    auto& note = MakeNote("Fresh");
    EXPECT_EQ(note.txtNote.backColor(), (Color{255, 255, 255}));
    EXPECT_EQ(note.txtNote.fontSize(), 12);
    EXPECT_TRUE(note.mnu12.checked);
    EXPECT_EQ(note.cmdShowDateTime.caption(), "Hide &System Date/Time");
}

TEST_F(MainTest, ForANewUserAnAlarmIsNotOnTopAndSoundsOnce) {
    PutNote(Note("Dentist").WithAlarmAt(9, 0, 10).WithSound());
    StartQuietly();
    user->CloseBox(Editor("Dentist"));
    Advance(12000);
    auto* display = FindWindow<frmDisplayNote>("Dentist");
    ASSERT_NE(display, nullptr);
    EXPECT_FALSE(display->IsTopMost());
    EXPECT_EQ(sound.Count(headless::RecordedSound::Kind::Once), 1);
    EXPECT_EQ(sound.Count(headless::RecordedSound::Kind::Loop), 0);
}

TEST_F(MainTest, OnlyTheAlarmsDisplayIsEverOnTop) {
    settings.values[{"Options", "WindowOnTop"}] = "1";
    PutNote(Note("Dentist").WithAlarmAt(9, 0, 10));
    StartQuietly();
    user->CloseBox(Editor("Dentist"));
    MakeNote("Another");
    Advance(12000);
    ASSERT_NE(FindWindow<frmDisplayNote>("Dentist"), nullptr);
    for (const auto& form : runtime->LoadedForms()) {
        EXPECT_EQ(form->IsTopMost(), form.get() == FindWindow<frmDisplayNote>("Dentist"))
            << form->name;
    }
}

TEST_F(MainTest, TheStoredAlarmSoundIsUsed) {
    settings.values[{"Config", "Alarm"}] = "D:\\own.wav";
    StartQuietly();
    EXPECT_EQ(StandardCode::Shared().AlarmSoundPath, "D:\\own.wav");
}

TEST_F(MainTest, AnEmptyAlarmSoundIsTheBuzzer) {
    settings.values[{"Config", "Alarm"}] = "";
    StartQuietly();
    EXPECT_EQ(StandardCode::Shared().AlarmSoundPath, "C:\\Jotwright\\Alarm buzzer.wav");
    EXPECT_EQ(settings.Read("Config", "Alarm"), "");
}

TEST_F(MainTest, AMissingTitlePictureEndsTheProgram) {
    files.Remove("C:\\Jotwright\\jotwright_title.gif");
    ExpectRunTimeError(53, "File not found");
    Start(StandardCode::Main);
    Advance(1000);
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_FALSE(tray.icon.has_value());
}

TEST_F(MainTest, ASettingThatIsNoNumberEndsTheProgram) {
    settings.values[{"Options", "StartCookoo"}] = "yes";
    ExpectRunTimeError(13, "Type mismatch");
    Start(StandardCode::Main);
    Advance(1000);
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(MainTest, AnUntrappedErrorSavesTheOpenNotesFirst) {
    StartQuietly();
    auto& note = MakeNote("Dentist");
    user->Type(note.txtNote, "Call to move the appointment.");
    ExpectRunTimeError(6, "Overflow");
    Start([] { throw base::RuntimeError(base::ErrorNumber::Overflow); });
    EXPECT_TRUE(runtime->HasEnded());
    ASSERT_TRUE(FileOf("Dentist").has_value());
    EXPECT_NE(FileOf("Dentist")->find("Call to move"), std::string::npos);
    EXPECT_FALSE(tray.icon.has_value());
}

TEST_F(MainTest, AnAlarmThatFiresWithoutItsIconIsSavedAsOff) {
    SetNow(2004, 5, 14, 14, 59, 50);
    PutNote(Note("Dentist").WithAlarmAt(15, 0));
    StartQuietly();
    files.Remove("C:\\Jotwright\\note.ico");
    ExpectRunTimeError(53, "File not found");
    Advance(12'000);
    EXPECT_TRUE(runtime->HasEnded());
    StandardCode::NoteRecord saved;
    NoteFile::Decode(FileOf("Dentist").value_or(""), saved);
    EXPECT_EQ(saved.AlarmState, "0");
}

TEST_F(MainTest, TemporaryFilesOfAKilledSaveAreRemoved) {
    StartQuietly();
    auto& note = MakeNote("Dentist");
    user->Type(note.txtNote, "first");
    // The temporary file of the note is written in three steps. Kill the program after the second
    // step.
    files.KillAt(3, headless::MemoryFiles::Moment::After);
    try {
        user->CloseBox(note);
        ADD_FAILURE() << "the save was not killed";
    } catch (const headless::Killed&) {
    }
    Restart();
    EXPECT_FALSE(FileOf("Dentist").has_value());
    const auto before = files.Names(notesFolder);
    const auto isTemporary = [](const std::string& name) { return name.ends_with(".tmp"); };
    ASSERT_TRUE(std::any_of(before.begin(), before.end(), isTemporary));
    Start(StandardCode::Main);
    const auto after = files.Names(notesFolder);
    EXPECT_TRUE(std::none_of(after.begin(), after.end(), isTemporary));
}
