#include "forms/Gestures.h"
#include "tests/notes/NoteStoreProgram.h"

// Texts that are kept although a question about saving or erasing was not answered or was not
// asked.

namespace {

using forms::BoxResult;
using StandardCode::Shared;
using frmNoteQuestionsTest = testing_support::NoteStoreProgram;

TEST_F(frmNoteQuestionsTest, ATextThatWasChangedBeforeAnActivationAsksAQuestion) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    frmNote& other = OpenThroughPanel(Note("Other", ""));
    user->Type(note.txtNote, "old and new");
    user->Click(other.txtNote);
    user->Click(note.txtNote);
    ExpectSaveQuestion(BoxResult::Yes);
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").Text, "old and new");
}

TEST_F(frmNoteQuestionsTest, EditOfAnOpenNoteWithUnsavedTextAsksWhenItCloses) {
    PutNote(Note("Dentist", "old"));
    ReadAll();
    TypeInto(Editor("Dentist"), "old and new");
    Shared().ControlPanelMode = true;
    frmNote& other = OpenThroughPanel(Note("Other", ""));
    user->Click(other.txtNote);
    Start([] { StandardCode::OpenNote(1); });
    ExpectSaveQuestion(BoxResult::No);
    user->CloseBox(Editor("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "old");
}

TEST_F(frmNoteQuestionsTest, TheProgramMayEndWhileTheSaveQuestionWaits) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    user->Type(note.txtNote, "old and new");
    ExpectSaveQuestion(BoxResult::Yes, [this] { Start([this] { runtime->End(); }); });
    user->CloseBox(note);
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_EQ(Saved("Dentist").Text, "old");
    RestartProgram();
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "old and new");
}

TEST_F(frmNoteQuestionsTest, AnUnnoticedEditGoesToTheRecycleBin) {
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    user->Type(note.txtNote, "new");
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").Text, "old");
    EXPECT_EQ(InFolder(), Names{"Dentist.txt"});
    ASSERT_EQ(files.RecycledBytes().size(), 1U);
    EXPECT_NE(files.RecycledBytes()[0].find("\"new\""), std::string::npos);
}

TEST_F(frmNoteQuestionsTest, IfErasingIsNotConfirmedTheTextOutlivesTheSession) {
    for (const bool isAnswered : {true, false}) {
        frmNote& note = MakeNote("Dentist", "typed");
        ExpectKillNoteQuestion("DENTIST", BoxResult::No, [isAnswered] {
            if (!isAnswered) {
                forms::gestures::EndSession();
            }
        });
        user->Click(note.tlbMain, "Erase");
        if (isAnswered) {
            user->Type(note.txtNote, "typed more");
            forms::gestures::EndSession();
        }
        RestartProgram();
        Start(StandardCode::ReadNotes);
        EXPECT_EQ(Editor("Dentist").txtNote.text(), isAnswered ? "typed more" : "typed");
        StandardCode::Shared().ControlPanelMode = false;
        user->CloseBox(Editor("Dentist"));
        files.Remove(PathOf("Dentist"));
    }
}

TEST_F(frmNoteQuestionsTest, WithoutARecycleBinAnUnnoticedEditStaysForTheNextStart) {
    files.SetRecycleBin(false);
    frmNote& note = OpenThroughPanel(Note("Dentist", "old"));
    user->Type(note.txtNote, "new");
    user->CloseBox(note);
    EXPECT_EQ(Saved("Dentist").Text, "old");
    RestartProgram();
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "new");
    EXPECT_EQ(Saved("Dentist").Text, "old");
    ASSERT_EQ(StandardCode::NoteTitles(), Names{"Dentist"});
    user->CloseBox(Editor("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "new");
    EXPECT_EQ(InFolder(), Names{"Dentist.txt"});
}

TEST_F(frmNoteQuestionsTest, WithoutARecycleBinTheUnnoticedEditNeverReplacesALaterSave) {
    files.SetRecycleBin(false);
    frmNote& unnoticed = OpenThroughPanel(Note("Dentist", "old"));
    user->Type(unnoticed.txtNote, "new");
    user->CloseBox(unnoticed);
    Start([] { StandardCode::OpenNote(1); });
    user->Type(Editor("Dentist").txtNote, "saved later");
    ExpectSaveQuestion(BoxResult::Yes);
    user->CloseBox(Editor("Dentist"));
    RestartProgram();
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "saved later");
    EXPECT_EQ(Editor("Dentist (recovered)").txtNote.text(), "new");
}

TEST_F(frmNoteQuestionsTest, WithoutARecycleBinTheTextOfANoteThatWasNotErasedStays) {
    files.SetRecycleBin(false);
    PutNote(Note("Dentist", "old"));
    ReadAll();
    frmNote& note = Editor("Dentist");
    TypeInto(note, "typed");
    ExpectKillNoteQuestion("DENTIST", BoxResult::No);
    user->Click(note.tlbMain, "Erase");
    user->Type(note.txtNote, "typed more");
    user->CloseBox(note);
    EXPECT_FALSE(testing_support::IsNoteOpen("Dentist"));
    EXPECT_EQ(Saved("Dentist").Text, "old");
    RestartProgram();
    Start(StandardCode::ReadNotes);
    EXPECT_EQ(Editor("Dentist").txtNote.text(), "typed more");
    EXPECT_EQ(Saved("Dentist").Text, "old");
}

}  // namespace
