#include "notes/frmNote.h"
#include "tests/support/NoteProgram.h"

namespace {

class NoteLayoutTest : public testing_support::NoteProgram {};

TEST_F(NoteLayoutTest, ShowsTheDateAndTimeUnlessTheSettingHidesThem) {
    frmNote& unset = MakeNote("Unset");
    EXPECT_EQ(unset.height(), 7335);
    EXPECT_EQ(unset.cmdShowDateTime.caption(), "Hide &System Date/Time");
    settings.values[{"Options", "ShowDateTime"}] = "1";
    frmNote& hidden = MakeNote("Hidden");
    EXPECT_EQ(hidden.height(), 6300);
    EXPECT_EQ(hidden.cmdShowDateTime.caption(), "Show &System Date/Time");
    settings.values[{"Options", "ShowDateTime"}] = "2";
    EXPECT_EQ(MakeNote("Other").height(), 7335);
}

TEST_F(NoteLayoutTest, TheWindowIsSmallerIfTheDateAndTimePanelIsHidden) {
    frmNote& note = MakeNote("Dentist");
    const int textHeight = note.txtNote.height;
    const auto bottomOf = [](const forms::Control& control) {
        return control.top() + control.height();
    };
    EXPECT_LE(bottomOf(note.fraCurrentTime), note.ScaleHeight());
    user->Click(note.cmdShowDateTime);
    EXPECT_EQ(note.height(), 6300);
    EXPECT_EQ(note.cmdShowDateTime.caption(), "Show &System Date/Time");
    EXPECT_GE(note.fraCurrentTime.top(), note.ScaleHeight());
    EXPECT_LE(bottomOf(note.cmdShowDateTime), note.ScaleHeight());
    EXPECT_EQ(note.txtNote.height(), textHeight);
    user->Click(note.cmdShowDateTime);
    EXPECT_EQ(note.height(), 7335);
    EXPECT_EQ(note.cmdShowDateTime.caption(), "Hide &System Date/Time");
    EXPECT_LE(bottomOf(note.fraCurrentTime), note.ScaleHeight());
}

TEST_F(NoteLayoutTest, TheTextTakesTheRoomOfTheHiddenPanelInAMaximizedWindow) {
    frmNote& note = MakeNote("Dentist");
    user->Maximize(note);
    const int textHeight = note.txtNote.height;
    user->Click(note.cmdShowDateTime);
    EXPECT_GT(note.txtNote.height(), textHeight);
    user->Click(note.cmdShowDateTime);
    EXPECT_EQ(note.txtNote.height(), textHeight);
}

TEST_F(NoteLayoutTest, TheTextTakesTheRoomOfTheHiddenPanelIfTheHeightStays) {
    frmNote& note = MakeNote("Dentist");
    user->Size(note, note.width, 6300);
    const int textHeight = note.txtNote.height;
    user->Click(note.cmdShowDateTime);
    EXPECT_EQ(note.height(), 6300);
    EXPECT_GT(note.txtNote.height(), textHeight);
}

TEST_F(NoteLayoutTest, TheTextFillsALargerWindow) {
    frmNote& note = MakeNote("Dentist");
    const int width = note.txtNote.width;
    const int height = note.txtNote.height;
    user->Size(note, note.width + 1500, note.height + 900);
    EXPECT_EQ(note.txtNote.width(), width + 1500);
    EXPECT_EQ(note.txtNote.height(), height + 900);
    EXPECT_EQ(note.tlbMain.width(), note.txtNote.width());
}

TEST_F(NoteLayoutTest, NothingOverlapsInTheSmallestWindow) {
    frmNote& note = MakeNote("Dentist");
    user->Size(note, 0, 0);
    EXPECT_GT(note.txtNote.height(), 0);
    EXPECT_GE(note.txtNote.top(), note.tlbMain.top() + note.tlbMain.height());
    EXPECT_GE(note.fraAlarm.top(), note.txtNote.top() + note.txtNote.height());
    EXPECT_GE(note.cmdShowDateTime.top(), note.fraAlarm.top() + note.fraAlarm.height());
    EXPECT_GE(note.fraAlarm.width(), note.cmdAlarm.left() + note.cmdAlarm.width());
}

}  // namespace
