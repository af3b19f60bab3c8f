#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "alarms/frmAlarms.h"
#include "alarms/frmKillAlarm.h"
#include "alarms/frmSpecialAlarms.h"
#include "app/dlgMsgBox.h"
#include "app/frmOptions.h"
#include "info/dlgInput.h"
#include "info/frmAbout.h"
#include "info/frmHelp.h"
#include "notes/frmViewNotes.h"
#include "tests/support/WholeProgram.h"
#include "tools/frmStopWatch.h"
#include "tools/frmTimer.h"

// Checks that users without a mouse and users of a screen reader can use the windows.
namespace {

using forms::Control;
using forms::ControlKind;
using forms::Default;

class KeyboardTest : public testing_support::WholeProgram {
  protected:
    void SetUp() override {
        WholeProgram::SetUp();
        StartQuietly();
    }

    template <class T>
    void ExpectEscapeCloses() {
        const auto pin = Shown<T>().shared_from_this();
        user->PressEscape();
        EXPECT_FALSE(pin->IsLoaded()) << pin->name;
    }
};

TEST_F(KeyboardTest, EnterInTheTitleBoxMakesTheNote) {
    user->Type(Main().txtNoteTitle, "Dentist");
    user->PressEnter();
    EXPECT_TRUE(Editor("Dentist").txtNote.HasFocus());
}

TEST_F(KeyboardTest, EscapeClosesWindowsThatCanBeCancelled) {
    ExpectEscapeCloses<frmTimer>();
    ExpectEscapeCloses<frmStopWatch>();
    ExpectEscapeCloses<frmViewNotes>();
    ExpectEscapeCloses<frmSpecialAlarms>();
    ExpectEscapeCloses<frmOptions>();
    ExpectEscapeCloses<frmAlarms>();
    ExpectEscapeCloses<frmAbout>();
    ExpectEscapeCloses<frmHelp>();
    ExpectEscapeCloses<frmTip>();
    ExpectEscapeCloses<dlgInput>();
}

TEST_F(KeyboardTest, OneKeyStartsAndStopsTheStopWatch) {
    auto& watch = Shown<frmStopWatch>();
    EXPECT_TRUE(watch.cmdStart.HasFocus());
    user->PressEnter();
    EXPECT_TRUE(watch.cmdStop.HasFocus());
    user->PressEnter();
    EXPECT_TRUE(watch.cmdSave.HasFocus());
    user->PressEnter();
    EXPECT_TRUE(watch.cmdStart.HasFocus());
    EXPECT_EQ(watch.lvwTime.Rows().size(), 1U);
}

TEST_F(KeyboardTest, SavingFromTheStopWatchMenuKeepsTheFocus) {
    auto& watch = Shown<frmStopWatch>();
    user->Click(watch.cmdStart);
    user->Click(watch.cmdStop);
    user->Click(watch.lvwTime);
    user->Choose(watch.mnuFileSave);
    EXPECT_TRUE(watch.lvwTime.HasFocus());
}

TEST_F(KeyboardTest, TheTimerIsStartedAndStoppedFromItsEntry) {
    auto& timer = Shown<frmTimer>();
    user->Type(timer.txtMinutes, "5");
    user->PressEnter();
    EXPECT_TRUE(timer.cmdStop.HasFocus());
    user->PressEnter();
    EXPECT_TRUE(timer.txtMinutes.HasFocus());
}

TEST_F(KeyboardTest, EnterEditsTheSelectedNoteAndErasingLeadsBackToTheList) {
    MakeNote("Dentist");
    user->CloseBox(Editor("Dentist"));
    MakeNote("Shopping");
    user->CloseBox(Editor("Shopping"));
    auto& panel = Shown<frmViewNotes>();
    EXPECT_TRUE(panel.lvwNotes.HasFocus());
    user->Select(panel.lvwNotes, 0);
    ExpectDeletingNoteQuestion("DENTIST", forms::BoxResult::Yes);
    user->Click(panel.cmdRemove);
    EXPECT_TRUE(panel.lvwNotes.HasFocus());
    user->Select(panel.lvwNotes, 0);
    user->PressEnter();
    EXPECT_TRUE(Editor("Shopping").IsVisible());
}

TEST_F(KeyboardTest, APanelWithoutNotesStartsAtNew) {
    auto& panel = Shown<frmViewNotes>();
    EXPECT_TRUE(panel.cmdNew.HasFocus());
    user->PressEnter();
    EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
}

TEST_F(KeyboardTest, ErasingTheLastNoteLeadsToNew) {
    MakeNote("Dentist");
    user->CloseBox(Editor("Dentist"));
    auto& panel = Shown<frmViewNotes>();
    user->Select(panel.lvwNotes, 0);
    ExpectDeletingNoteQuestion("DENTIST", forms::BoxResult::Yes);
    user->Click(panel.cmdRemove);
    EXPECT_TRUE(panel.cmdNew.HasFocus());
}

TEST_F(KeyboardTest, TheMenuKeyReachesEveryPopUp) {
    const auto none = [](forms::Menu&) -> forms::Menu* { return nullptr; };
    stage->ExpectPopup("mnuPop", none);
    user->Click(Main().cmdHideMe);
    ClickTrayIcon();
    Main().cmdTimer.SetFocus();
    user->PressMenuKey();

    frmNote& note = MakeNote("Dentist");
    for (Control* control :
         {static_cast<Control*>(&note.txtNote), static_cast<Control*>(&note.tlbMain),
          static_cast<Control*>(&note.cmdAlarm)}) {
        control->SetFocus();
        stage->ExpectPopup("mnuPop", none);
        user->PressMenuKey();
    }

    user->CloseBox(note);
    Shown<frmViewNotes>().lvwNotes.SetFocus();
    stage->ExpectPopup("mnuPop", none);
    user->PressMenuKey();
    user->CloseBox(Default<frmViewNotes>());

    Shown<frmDisplayNote>();
    EXPECT_TRUE(Default<frmDisplayNote>().lblNoteText.leavesMenuKey);
    stage->ExpectPopup("mnuPop", none);
    user->PressMenuKey();
}

TEST_F(KeyboardTest, TheToolbarFollowsTheLastControlOfTheEditor) {
    frmNote& note = MakeNote("Dentist");
    std::vector<std::string> visited;
    do {
        user->PressTab();
        visited.emplace_back(note.focus.ActiveControl()->name);
    } while (visited.back() != "txtNote" && visited.size() < 20);
    EXPECT_EQ(visited, (std::vector<std::string>{"dtDate", "dtTime", "chkAudioAlarm", "cmdAlarm",
                                                 "cmdShowDateTime", "tlbMain", "txtNote"}));
}

// The name that a screen reader speaks: the accessible name, the caption, or the label just before.
std::string SpokenName(const forms::Form& form, const Control& control) {
    if (!control.accessibleName.empty()) {
        return control.accessibleName;
    }
    if (const auto* captioned = dynamic_cast<const forms::Captioned*>(&control)) {
        return captioned->caption;
    }
    const std::vector<Control*> order = form.focus.TabOrder();
    const auto at = std::find(order.begin(), order.end(), &control);
    const bool followsLabel = at != order.begin() && (*(at - 1))->kind == ControlKind::Label;
    return followsLabel ? static_cast<const forms::Label&>(**(at - 1)).caption() : std::string();
}

void ExpectNames(const forms::Form& form) {
    std::vector<std::string> names;
    for (const Control* control : form.Controls()) {
        const bool isSeen = control->IsEffectivelyVisible();
        if (isSeen && (control->CanHaveFocus() || control->kind == ControlKind::Frame)) {
            names.push_back(SpokenName(form, *control));
            EXPECT_NE(names.back(), "") << form.name << '.' << control->name;
        }
    }
    std::sort(names.begin(), names.end());
    const auto twice = std::adjacent_find(names.begin(), names.end());
    EXPECT_EQ(twice, names.end()) << "twice in " << form.name << ": " << *twice;
}

TEST_F(KeyboardTest, EveryControlHasANameOfItsOwn) {
    ExpectNames(Main());
    ExpectNames(MakeNote("Dentist"));
    ExpectNames(Shown<frmDisplayNote>());
    ExpectNames(Shown<frmViewNotes>());
    ExpectNames(Shown<frmSpecialAlarms>());
    ExpectNames(Shown<frmOptions>());
    ExpectNames(Shown<frmAlarms>());
    ExpectNames(Shown<frmKillAlarm>());
    ExpectNames(Shown<frmTimer>());
    ExpectNames(Shown<frmStopWatch>());
    ExpectNames(Shown<frmTip>());
    ExpectNames(Shown<frmAbout>());
    ExpectNames(Shown<frmHelp>());
    ExpectNames(Shown<dlgInput>());
    ExpectNames(Shown<dlgMsgBox>());
}

}  // namespace
