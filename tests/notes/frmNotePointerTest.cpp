#include "app/TrayMessages.h"
#include "forms/Gestures.h"
#include "notes/frmNote.h"
#include "tests/support/NoteProgram.h"

// The messages of the notification area arrive at the editor as positions of the pointer.

namespace {

class frmNotePointerTest : public testing_support::NoteProgram {};

TEST_F(frmNotePointerTest, ShowMeBringsUpAMinimizedNote) {
    frmNote& note = MakeNote("Dentist");
    user->Minimize(note);
    forms::gestures::Choose(note.mnuShow);
    EXPECT_EQ(note.windowState(), forms::WindowState::Normal);
    EXPECT_TRUE(note.IsVisible());
    EXPECT_FALSE(note.mnuShow.enabled());
    EXPECT_TRUE(note.mnuHide.enabled());
    ASSERT_EQ(tray.log.size(), 1U);
    EXPECT_FALSE(tray.log[0].add);
    EXPECT_FALSE(tray.log[0].succeeded);
}

TEST_F(frmNotePointerTest, ThePointerAtTheLeftButtonsMessageShowsTheNote) {
    for (const int message : {TrayMessages::leftButtonUp, TrayMessages::leftDoubleClick}) {
        tray.log.clear();
        frmNote& note = MakeNote("Note " + std::to_string(message));
        user->Size(note, 9000, 8000);
        Start([&note] {
            note.mnuHide.enabled = false;
            note.mnuShow.enabled = true;
        });
        user->MouseMove(note, message * 15);
        EXPECT_TRUE(note.mnuHide.enabled()) << message;
        EXPECT_FALSE(note.mnuShow.enabled()) << message;
        EXPECT_EQ(stage->Foreground(), &note) << message;
        ASSERT_EQ(tray.log.size(), 1U) << message;
        EXPECT_FALSE(tray.log[0].succeeded) << message;
    }
}

TEST_F(frmNotePointerTest, ThePointerAtTheRightButtonsMessageOpensTheMenu) {
    frmNote& note = MakeNote("Dentist");
    user->Size(note, 9000, 8000);
    stage->ExpectPopupDismissed("mnuPop");
    user->MouseMove(note, TrayMessages::rightButtonUp * 15);
    EXPECT_EQ(stage->Foreground(), &note);
    EXPECT_TRUE(tray.log.empty());
}

TEST_F(frmNotePointerTest, ThePointerInOtherPlacesOnlySetsTheTip) {
    frmNote& note = MakeNote("Dentist");
    Start([&note] { note.mnuHide.enabled = false; });
    for (const int message : {513, 516, 518}) {  // left down, right down, right double click
        user->MouseMove(note, message * 15);
    }
    EXPECT_FALSE(note.mnuHide.enabled());
    EXPECT_TRUE(tray.log.empty());
    EXPECT_EQ(note.TrayIconRecord.tip, "Dentist" + std::string(1, '\0') + std::string(64 - 8, ' '));
}

TEST_F(frmNotePointerTest, ALongTitleIsCutInTheTip) {
    const std::string title(80, 'x');
    frmNote& note = MakeNote(title);
    user->MouseMove(note, 15);
    EXPECT_EQ(note.TrayIconRecord.tip, title.substr(0, 63) + std::string(1, '\0'));
}

}  // namespace
