#include "forms/Application.h"
#include "notes/NoteStore.h"
#include "notes/OpenEditor.h"
#include "notes/RestoreNotes.h"
#include "tests/support/NoteProgram.h"

namespace {

using base::DateTime;
using forms::Color;
using forms::WindowState;
using StandardCode::Shared;

class RestoreNotesTest : public testing_support::NoteProgram {
  protected:
    void Restore() { Start(StandardCode::ReadNotes); }
};

TEST_F(RestoreNotesTest, AnEmptyOrMissingFolderOpensNothing) {
    Restore();
    EXPECT_TRUE(runtime->LoadedForms().empty());
    files.PutFolder("C:\\Jotwright\\Notes");
    Restore();
    EXPECT_TRUE(runtime->LoadedForms().empty());
    EXPECT_EQ(stage->Pointer(), forms::MousePointer::Hourglass);
}

TEST_F(RestoreNotesTest, EveryNoteComesBackMinimized) {
    PutNote(Note("Beta", "second"));
    PutNote(Note("Alpha", "first"));
    Restore();
    EXPECT_EQ(StandardCode::NoteTitles(), (std::vector<std::string>{"Alpha", "Beta"}));
    for (const char* title : {"Alpha", "Beta"}) {
        frmNote& note = Editor(title);
        EXPECT_TRUE(note.IsVisible());
        EXPECT_EQ(note.windowState(), WindowState::Minimized);
        EXPECT_EQ(forms::headless::HeadlessStage::WindowOf(note).timesShown, 1);
    }
    EXPECT_EQ(Editor("Beta").txtNote.text(), "second");
}

struct RestoredColorCase {
    int index;
    Color back;
    Color text;
    const char* item;
};

TEST_F(RestoreNotesTest, ColorsAreStrongAndAnUnknownColorIsYellow) {
    const std::vector<RestoredColorCase> cases{
        {1, {255, 255, 255}, {0, 0, 0}, "White"}, {2, {255, 0, 0}, {255, 255, 255}, "Red"},
        {3, {0, 255, 0}, {0, 0, 0}, "Green"},     {4, {0, 0, 255}, {255, 255, 255}, "Blue"},
        {5, {255, 255, 0}, {0, 0, 0}, "Yellow"},  {6, {255, 255, 0}, {0, 0, 0}, "Yellow"},
        {0, {255, 255, 0}, {0, 0, 0}, "Yellow"},  {-3, {255, 255, 0}, {0, 0, 0}, "Yellow"},
        {99, {255, 255, 0}, {0, 0, 0}, "Yellow"},
    };
    for (const RestoredColorCase& one : cases) {
        PutNote(Note("Note " + std::to_string(one.index), "").InColor(one.index));
    }
    Restore();
    for (const RestoredColorCase& one : cases) {
        frmNote& note = Editor("Note " + std::to_string(one.index));
        EXPECT_EQ(note.txtNote.backColor(), one.back) << one.index;
        EXPECT_EQ(note.txtNote.foreColor(), one.text) << one.index;
        for (const forms::Menu* entry : note.mnuColor.entries) {
            EXPECT_EQ(entry->checked(), entry->caption() == one.item) << one.index;
        }
    }
}

TEST_F(RestoreNotesTest, OnlyTheFourFontSizesAreAccepted) {
    const std::vector<std::pair<int, int>> cases{{10, 10}, {12, 12}, {14, 14},
                                                 {16, 16}, {11, 12}, {0, 12}};
    for (const auto& [saved, shown] : cases) {
        PutNote(Note("Size " + std::to_string(saved), "").InPoints(saved));
    }
    Restore();
    for (const auto& [saved, shown] : cases) {
        frmNote& note = Editor("Size " + std::to_string(saved));
        EXPECT_EQ(note.txtNote.fontSize(), shown) << saved;
        for (const forms::Menu* entry : note.mnuFont.entries) {
            EXPECT_EQ(entry->checked(), entry->caption() == std::to_string(shown) + " point");
        }
    }
}

TEST_F(RestoreNotesTest, AnAlarmComesBackSet) {
    PutNote(Note("Dentist", "").WithAlarmAt(9, 30, 15).On(DateTime::FromDate(2004, 5, 20)));
    Restore();
    frmNote& note = Editor("Dentist");
    EXPECT_EQ(note.icon().path, "C:\\Jotwright\\alarmon.ico");
    EXPECT_EQ(note.imgAlarm.picture().path, "C:\\Jotwright\\alarmon.ico");
    EXPECT_TRUE(note.imgAlarm.visible());
    EXPECT_EQ(note.cmdAlarm.caption(), "&Turn Off Alarm");
    EXPECT_TRUE(note.tmrNote.enabled());
    EXPECT_EQ(note.tmrNote.interval(), 600);
    EXPECT_EQ(note.fraAlarm.caption(), " Alarm Set ");
    EXPECT_EQ(note.lblCalMonth.caption(), "May");
    EXPECT_EQ(note.lblDayYear.caption(), "20, 2004");
    EXPECT_EQ(note.lblClock.caption(), "9:30:15 AM");
    for (const forms::Control* control : std::initializer_list<const forms::Control*>{
             &note.shpMonth, &note.shpCalBody, &note.shpClock, &note.lblCalMonth, &note.lblDayYear,
             &note.lblClock}) {
        EXPECT_TRUE(control->visible()) << control->name;
    }
    for (const forms::Control* control : std::initializer_list<const forms::Control*>{
             &note.dtDate, &note.dtTime, &note.lblDate, &note.lblTime}) {
        EXPECT_FALSE(control->visible()) << control->name;
    }
    EXPECT_FALSE(note.dtDate.enabled());
    EXPECT_FALSE(note.dtTime.enabled());
}

TEST_F(RestoreNotesTest, TheSharedAlarmFlagIsTheFlagOfTheLastNote) {
    PutNote(Note("Alpha", "").WithAlarm());
    PutNote(Note("Beta", ""));
    Restore();
    EXPECT_EQ(Shared().AlarmFlag, "0");
    PutNote(Note("Gamma", "").WithAlarm());
    Restore();
    EXPECT_EQ(Shared().AlarmFlag, "1");
}

TEST_F(RestoreNotesTest, TheAudioBoxComesBackWithoutAnAlarm) {
    PutNote(Note("Dentist", "").WithSound());
    Restore();
    EXPECT_EQ(Editor("Dentist").chkAudioAlarm.value(), 1);
    EXPECT_TRUE(Editor("Dentist").imgBell.visible());
    EXPECT_EQ(Editor("Dentist").cmdAlarm.caption(), "&Set Alarm");
}

TEST_F(RestoreNotesTest, ARewrittenNoteComesBackWithItsAlarmOff) {
    files.PutFolder("C:\\Jotwright\\Notes");
    files.PutFile(PathOf("Dentist"),
                  "\"Dentist\",\"Call.\",#2004-05-20#,\"#12:00#\",5,12,\"0\",0,\"yes\"\r\n");
    Restore();
    frmNote& note = Editor("Dentist");
    EXPECT_EQ(note.cmdAlarm.caption(), "&Set Alarm");
    EXPECT_EQ(note.dtDate.value(), DateTime::FromDate(2004, 5, 20));
    EXPECT_EQ(note.dtTime.value(), DateTime::FromTime(12, 0, 0));
}

TEST_F(RestoreNotesTest, TheTitleComesFromTheFileEvenIfTheFileNameDiffers) {
    files.PutFolder("C:\\Jotwright\\Notes");
    files.PutFile(PathOf("file"), NoteFile::Encode(Note("title")));
    Restore();
    frmNote& note = Editor("title");
    user->Restore(note);
    user->CloseBox(note);
    EXPECT_FALSE(FileOf("title").has_value());
    EXPECT_EQ(FileOf("file"), NoteFile::Encode(Note("title")));
}

TEST_F(RestoreNotesTest, ADamagedFileEndsTheRestoring) {
    PutNote(Note("Alpha", ""));
    files.PutFile(PathOf("Beta"), "\"Beta\",\"text\"");
    PutNote(Note("Gamma", ""));
    ExpectLoadError("Input past end of file");
    Restore();
    EXPECT_TRUE(testing_support::IsNoteOpen("Alpha"));
    EXPECT_EQ(Editor("Alpha").windowState(), WindowState::Minimized);
    EXPECT_FALSE(testing_support::IsNoteOpen("Beta"));
    EXPECT_FALSE(testing_support::IsNoteOpen("Gamma"));
    EXPECT_TRUE(FileOf("Beta").has_value());
}

TEST_F(RestoreNotesTest, ABadDateEndsTheRestoring) {
    files.PutFolder("C:\\Jotwright\\Notes");
    files.PutFile(PathOf("Alpha"),
                  "\"Alpha\",\"\",#2004-13-14#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    PutNote(Note("Beta", ""));
    ExpectLoadError("Type mismatch");
    Restore();
    EXPECT_TRUE(runtime->LoadedForms().empty());
}

TEST_F(RestoreNotesTest, AMissingAlarmIconEndsTheRestoring) {
    PutNote(Note("Alpha", "").WithAlarm());
    PutNote(Note("Beta", ""));
    files.Remove("C:\\Jotwright\\alarmon.ico");
    ExpectLoadError("File not found");
    Restore();
    EXPECT_FALSE(testing_support::IsNoteOpen("Beta"));
}

TEST_F(RestoreNotesTest, TheAlarmStaysSetIfTheAlarmIconIsMissing) {
    const Note record = Note("Alpha").WithAlarm();
    PutNote(record);
    files.Remove("C:\\Jotwright\\alarmon.ico");
    ExpectLoadError("File not found");
    Restore();
    EXPECT_TRUE(runtime->LoadedForms().empty());
    EXPECT_EQ(Saved("Alpha"), record);
}

TEST_F(RestoreNotesTest, RestoringAndClosingLeavesTheFileAsItWas) {
    PutNote(Note("Dentist", "Call.\r\nAsk.")
                .WithAlarmAt(23, 59, 58)
                .WithSound()
                .InColor(3)
                .InPoints(16));
    const auto before = FileOf("Dentist");
    Restore();
    files.ClearLog();
    user->Restore(Editor("Dentist"));
    user->CloseBox(Editor("Dentist"));
    EXPECT_EQ(FileOf("Dentist"), before);
    for (const std::string& entry : files.Log()) {
        EXPECT_TRUE(entry.rfind("read", 0) == 0) << entry;
    }
}

// With more files than slots, ReadNotes() restores the notes after the running handler.
class RestoreManyNotesTest : public RestoreNotesTest {
  protected:
    static constexpr std::size_t count = 120;

    void SetUp() override {
        NoteProgram::SetUp();
        for (std::size_t number = 1; number <= count; ++number) {
            PutNote(Note(TitleOf(number), "text"));
        }
        Restore();
    }
    static std::string TitleOf(std::size_t number) {
        return "Note " + std::to_string(1000 + number);
    }
    static std::size_t OpenCount() { return StandardCode::Notes().OpenNotes().size(); }
};

TEST_F(RestoreManyNotesTest, TheyComeBackMinimizedInTheirOrderAfterTheHandler) {
    EXPECT_EQ(OpenCount(), 0U);
    Advance(200);
    std::vector<std::string> titles;
    for (std::size_t number = 1; number <= count; ++number) {
        titles.push_back(TitleOf(number));
    }
    EXPECT_EQ(StandardCode::NoteTitles(), titles);
    EXPECT_EQ(Editor(TitleOf(count)).windowState(), WindowState::Minimized);
    EXPECT_EQ(Editor(TitleOf(count)).txtNote.text(), "text");
}

TEST_F(RestoreManyNotesTest, AnErasedNoteIsSkippedAndAnOpenOneIsNotOpenedAgain) {
    Start([] {
        StandardCode::Notes().Erase("Note 1002.txt");
        StandardCode::RestoreNote(NoteStore::Read("Note 1003.txt"));
    });
    Advance(200);
    EXPECT_EQ(OpenCount(), count - 1);
    EXPECT_FALSE(testing_support::IsNoteOpen("Note 1002"));
    EXPECT_EQ(Editor("Note 1003").windowState(), WindowState::Normal);
}

TEST_F(RestoreManyNotesTest, AFileThatCannotBeReadIsReportedAndEndsTheRestoring) {
    PutNoteWithBadDate("Note 1010");
    ExpectLoadError("Type mismatch");
    Advance(200);
    EXPECT_EQ(OpenCount(), 9U);
}

TEST_F(RestoreManyNotesTest, TheProgramMayEndMeanwhile) {
    Start([] { forms::Application::Current().End(); });
    Advance(200);
    EXPECT_EQ(OpenCount(), 0U);
}

}  // namespace
