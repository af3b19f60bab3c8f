#include "notes/OpenNote.h"
#include "tests/support/NoteProgram.h"

namespace {

using base::DateTime;
using forms::Color;
using StandardCode::Shared;

class OpenNoteTest : public testing_support::NoteProgram {
  protected:
    void Open(int slot) {
        Start([slot] { StandardCode::OpenNote(slot); });
    }
};

TEST_F(OpenNoteTest, OpensTheNoteOfTheSlot) {
    Shared().NotesArray[7] = Note("Dentist", "Call.\r\nAsk.")
                                 .At(9, 30)
                                 .On(DateTime::FromDate(2031, 2, 3))
                                 .InColor(4)
                                 .InPoints(14)
                                 .WithSound();
    Open(7);
    frmNote& note = Editor("Dentist");
    EXPECT_EQ(StandardCode::CurrentNote().get(), &note);
    EXPECT_EQ(note.txtNote.text(), "Call.\r\nAsk.");
    EXPECT_EQ(note.dtDate.value(), DateTime::FromDate(2031, 2, 3));
    EXPECT_EQ(note.dtTime.value(), DateTime::FromTime(9, 30, 0));
    EXPECT_EQ(note.txtNote.backColor(), (Color{0, 0, 255}));
    EXPECT_EQ(note.txtNote.foreColor(), (Color{255, 255, 255}));
    EXPECT_TRUE(note.mnuBlue.checked());
    EXPECT_EQ(note.txtNote.fontSize(), 14);
    EXPECT_EQ(note.chkAudioAlarm.value(), 1);
    EXPECT_EQ(note.cmdAlarm.caption(), "&Set Alarm");
    EXPECT_TRUE(note.IsVisible());
    EXPECT_EQ(note.windowState(), forms::WindowState::Normal);
    EXPECT_TRUE(note.mnuHide.enabled());
    EXPECT_FALSE(note.mnuShow.enabled());
}

TEST_F(OpenNoteTest, AnAlarmIsPresentedAndKeptInTheSlot) {
    Shared().NotesArray[1] = Note("Dentist", "").WithAlarm();
    Shared().AlarmFlag = "before";
    Open(1);
    frmNote& note = Editor("Dentist");
    EXPECT_EQ(note.cmdAlarm.caption(), "&Turn Off Alarm");
    EXPECT_EQ(note.lblCalMonth.caption(), "May");
    EXPECT_TRUE(note.tmrNote.enabled());
    EXPECT_EQ(Shared().NotesArray[1].AlarmState, "1");
    EXPECT_EQ(Shared().AlarmFlag, "before");
}

TEST_F(OpenNoteTest, ASlotOutsideTheArrayIsAnError) {
    for (const int slot : {0, 101, -1}) {
        Start([slot] {
            try {
                StandardCode::OpenNote(slot);
                ADD_FAILURE() << slot;
            } catch (const base::RuntimeError& error) {
                EXPECT_EQ(error.number(), 9) << slot;
            }
        });
    }
    EXPECT_TRUE(runtime->LoadedForms().empty());
}

TEST_F(OpenNoteTest, ShowsNoMessageOfItsOwn) {
    Shared().NotesArray[1] = Note("Dentist", "").WithAlarm();
    files.Remove("C:\\Jotwright\\alarmon.ico");
    Start([] {
        try {
            StandardCode::OpenNote(1);
            ADD_FAILURE();
        } catch (const base::RuntimeError& error) {
            EXPECT_EQ(error.number(), 53);
        }
    });
    EXPECT_TRUE(stage->Boxes().empty());
}

TEST_F(OpenNoteTest, TheCurrentNoteIsTheLastOneOpened) {
    EXPECT_EQ(StandardCode::CurrentNote(), nullptr);
    Shared().NotesArray[1] = Note("First", "");
    Shared().NotesArray[2] = Note("Second", "");
    Open(1);
    Open(2);
    EXPECT_EQ(StandardCode::CurrentNote().get(), &Editor("Second"));
    user->CloseBox(Editor("Second"));
    EXPECT_EQ(StandardCode::CurrentNote(), nullptr);
}

TEST_F(OpenNoteTest, IfAFileHasTwoEditorsTheEditorThatSavedItComesUp) {
    MakeNote("Same", "one");
    Start([] { StandardCode::CreateNote("Same"); });
    auto& second = static_cast<frmNote&>(*runtime->LoadedForms().back());
    user->Type(second.txtNote, "two");
    Start([this] { Editor("Same").WriteNote(); });
    Start([&second] { second.WriteNote(); });
    ASSERT_EQ(StandardCode::Notes().OpenNotes().size(), 2U);
    for (int times = 1; times <= 2; ++times) {
        Open(1);
        EXPECT_EQ(StandardCode::Notes().OpenNotes().size(), 2U);
        EXPECT_EQ(StandardCode::CurrentNote().get(), &second);
    }
}

TEST_F(OpenNoteTest, ThePanelMayRebuildTheArrayMeanwhile) {
    PutNote(Note("Dentist"));
    Start(StandardCode::LoadNotesArray);
    StandardCode::Signals().ControlPanel.Subscribe([](PanelAction) {
        Shared().NotesArray = StandardCode::NotesTable{};
        Shared().NoteCount = 0;
    });
    Open(1);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "text");
}

TEST_F(OpenNoteTest, AnotherNoteThatTakesTheSlotMeanwhileDoesNotRing) {
    PutNote(Note("Dentist").WithAlarm());
    Start(StandardCode::LoadNotesArray);
    StandardCode::Signals().ControlPanel.Subscribe([this](PanelAction) {
        PutNote(Note("Bread"));
        StandardCode::LoadNotesArray();
    });
    Open(1);
    EXPECT_EQ(Shared().NotesArray[1].Title, "Bread");
    EXPECT_EQ(Shared().NotesArray[1].AlarmState, "0");
}

}  // namespace
