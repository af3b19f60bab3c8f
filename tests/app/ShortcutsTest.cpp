#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>

#include "alarms/frmAlarms.h"
#include "alarms/frmKillAlarm.h"
#include "alarms/frmSpecialAlarms.h"
#include "app/dlgMsgBox.h"
#include "app/frmOptions.h"
#include "forms/Keyboard.h"
#include "info/dlgInput.h"
#include "info/frmAbout.h"
#include "info/frmHelp.h"
#include "notes/frmViewNotes.h"
#include "tests/support/WholeProgram.h"
#include "tools/frmStopWatch.h"
#include "tools/frmTimer.h"

namespace {

using forms::Shortcut;
using forms::gestures::KeyUse;
using forms::gestures::PressShortcut;

class ShortcutsTest : public testing_support::WholeProgram {
  protected:
    void SetUp() override {
        WholeProgram::SetUp();
        StartQuietly();
    }

    // Expects that F1 shows the shipped file of help with this command.
    void ExpectHelp(int command) {
        user->Press(Shortcut::F1);
        ++helps;
        ASSERT_EQ(shell.helpShown.size(), helps);
        EXPECT_EQ(shell.helpShown.back().file, "C:\\Jotwright\\JOTWRIGHT2.hlp");
        EXPECT_EQ(shell.helpShown.back().command, command);
    }

    template <class T>
    void ExpectHelpIn() {
        forms::Form& window = Shown<T>();
        SCOPED_TRACE(window.name);
        ExpectHelp(forcedFile);
        user->CloseBox(window);
    }

    static void ExpectOnly(forms::Form& form, std::initializer_list<Shortcut> used) {
        for (const Shortcut key : {Shortcut::ControlN, Shortcut::ControlP, Shortcut::ControlS,
                                   Shortcut::Delete, Shortcut::F1}) {
            const bool isUsed = std::find(used.begin(), used.end(), key) != used.end();
            EXPECT_EQ(form.TargetOf(key).index() != 0, isUsed)
                << form.name << ", key " << static_cast<int>(key);
        }
    }

    static constexpr int contents = 3;
    static constexpr int forcedFile = 9;
    std::size_t helps = 0;
};

TEST_F(ShortcutsTest, F1ShowsTheHelpInEveryWindow) {
    ExpectHelp(contents);
    ExpectHelpIn<frmViewNotes>();
    ExpectHelpIn<frmSpecialAlarms>();
    ExpectHelpIn<frmOptions>();
    ExpectHelpIn<frmAlarms>();
    ExpectHelpIn<frmKillAlarm>();
    ExpectHelpIn<frmTimer>();
    ExpectHelpIn<frmStopWatch>();
    ExpectHelpIn<frmTip>();
    ExpectHelpIn<frmAbout>();
    ExpectHelpIn<frmHelp>();
    ExpectHelpIn<dlgInput>();
    ExpectHelpIn<dlgMsgBox>();
    ExpectHelpIn<frmDisplayNote>();
    MakeNote("Dentist");
    ExpectHelp(forcedFile);
}

TEST_F(ShortcutsTest, F1WorksInADialogAndNotInTheWindowThatItDisables) {
    stage->ExpectModal<frmAbout>([this](frmAbout& about) {
        ExpectHelp(forcedFile);
        EXPECT_EQ(PressShortcut(Main(), Shortcut::F1), KeyUse::Unused);
        EXPECT_EQ(shell.helpShown.size(), helps);
        user->CloseBox(about);
    });
    user->Choose(Main().mnuHelpAbout);
}

TEST_F(ShortcutsTest, ControlSSavesTheNoteAsTheToolbarDoes) {
    frmNote& note = MakeNote("Dentist");
    user->Type(note.txtNote, "Call.");
    ExpectSaved("DENTIST");
    user->Press(Shortcut::ControlS);
    ASSERT_TRUE(FileOf("Dentist").has_value());
    EXPECT_NE(FileOf("Dentist")->find("\"Call.\""), std::string::npos);
    EXPECT_TRUE(note.txtNote.HasFocus());
}

TEST_F(ShortcutsTest, ADisabledNoteIsNeitherSavedNorPrinted) {
    frmNote& note = MakeNote("Dentist");
    user->Type(note.txtNote, "Call.");
    const auto before = FileOf("Dentist");
    stage->ExpectModal<frmAbout>([&](frmAbout& about) {
        EXPECT_EQ(PressShortcut(note, Shortcut::ControlS), KeyUse::Unused);
        EXPECT_EQ(PressShortcut(note, Shortcut::ControlP), KeyUse::Unused);
        user->CloseBox(about);
    });
    user->Click(note.tlbMain, "About");
    EXPECT_EQ(FileOf("Dentist"), before);
    EXPECT_TRUE(printer.documents.empty());
}

TEST_F(ShortcutsTest, ControlPPrintsTheNote) {
    frmNote& note = MakeNote("Dentist");
    user->Type(note.txtNote, "Call.");
    user->Press(Shortcut::ControlP);
    ASSERT_EQ(printer.documents.size(), 1U);
    EXPECT_EQ(printer.documents[0].Text(), "\r\n\r\nNote Title: Dentist\r\n\r\nCall.\r\n");
    note.mnuPrint.enabled = false;
    EXPECT_EQ(PressShortcut(note, Shortcut::ControlP), KeyUse::Unused);
    EXPECT_EQ(printer.documents.size(), 1U);
}

TEST_F(ShortcutsTest, ControlPPrintsTheNoteOfAnAlarmDisplay) {
    auto& display = Shown<frmDisplayNote>();
    user->Type(display.lblNoteText, "Call.");
    user->Press(Shortcut::ControlP);
    ASSERT_EQ(printer.documents.size(), 1U);
    EXPECT_EQ(printer.documents[0].Text(), "\r\n\r\nNote Title: note\r\n\r\nCall.\r\n");
}

TEST_F(ShortcutsTest, DeleteErasesTheSelectedNoteOfTheList) {
    user->CloseBox(MakeNote("Dentist"));
    auto& panel = Shown<frmViewNotes>();
    panel.cmdRemove.enabled = false;
    EXPECT_EQ(PressShortcut(panel, Shortcut::Delete), KeyUse::Unused);
    user->Select(panel.lvwNotes, 0);
    panel.cmdOK.SetFocus();
    EXPECT_EQ(PressShortcut(panel, Shortcut::Delete), KeyUse::Unused);
    panel.lvwNotes.SetFocus();
    ExpectDeletingNoteQuestion("DENTIST", forms::BoxResult::No);
    user->Press(Shortcut::Delete);
    EXPECT_TRUE(FileOf("Dentist").has_value());
    user->Select(panel.lvwNotes, 0);
    ExpectDeletingNoteQuestion("DENTIST", forms::BoxResult::Yes);
    user->Press(Shortcut::Delete);
    EXPECT_FALSE(FileOf("Dentist").has_value());
    EXPECT_TRUE(panel.lvwNotes.Rows().empty());
}

TEST_F(ShortcutsTest, ControlNInThePanelLeadsToTheTitleBox) {
    user->Click(Main().cmdHideMe);
    auto& panel = Shown<frmViewNotes>();
    panel.cmdNew.enabled = false;
    EXPECT_EQ(PressShortcut(panel, Shortcut::ControlN), KeyUse::Unused);
    panel.cmdNew.enabled = true;
    user->Press(Shortcut::ControlN);
    EXPECT_EQ(forms::LoadedDefault<frmViewNotes>(), nullptr);
    EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
}

TEST_F(ShortcutsTest, ControlSPressesTheSaveButtons) {
    auto& watch = Shown<frmStopWatch>();
    EXPECT_EQ(PressShortcut(watch, Shortcut::ControlS), KeyUse::Unused);
    user->Click(watch.cmdStart);
    user->Click(watch.cmdStop);
    user->Press(Shortcut::ControlS);
    EXPECT_EQ(watch.lvwTime.Rows().size(), 1U);

    auto& sounds = Shown<frmAlarms>();
    user->Click(sounds.optAlarm[1]);
    user->Press(Shortcut::ControlS);
    EXPECT_EQ(forms::LoadedDefault<frmAlarms>(), nullptr);
    EXPECT_EQ(settings.values.count({"Config", "Alarm"}), 1U);

    auto& weekly = Shown<frmSpecialAlarms>();
    EXPECT_EQ(PressShortcut(weekly, Shortcut::ControlS), KeyUse::Unused);
    user->Type(weekly.txtMessage[0], "Pay the rent");
    user->Press(Shortcut::ControlS);
    EXPECT_EQ(forms::LoadedDefault<frmSpecialAlarms>(), nullptr);
    EXPECT_EQ(StandardCode::Shared().SpecialAlarmMessage[0], "Pay the rent");
}

TEST_F(ShortcutsTest, NoWindowHasAnyOtherKey) {
    ExpectOnly(Main(), {Shortcut::F1});
    frmNote& note = MakeNote("Dentist");
    ExpectOnly(note, {Shortcut::ControlP, Shortcut::ControlS, Shortcut::F1});
    user->CloseBox(note);
    ExpectOnly(Shown<frmDisplayNote>(), {Shortcut::ControlP});
    ExpectOnly(Shown<frmStopWatch>(), {Shortcut::ControlS});
    ExpectOnly(Shown<frmAlarms>(), {Shortcut::ControlS});
    ExpectOnly(Shown<frmSpecialAlarms>(), {Shortcut::ControlS});
    ExpectOnly(Shown<frmViewNotes>(), {Shortcut::ControlN, Shortcut::Delete});
    ExpectOnly(Shown<frmTimer>(), {});
    ExpectOnly(Shown<frmOptions>(), {});
}

}  // namespace
