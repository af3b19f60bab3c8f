#include "app/ProductTexts.h"
#include "app/dlgMsgBox.h"
#include "app/frmMain.h"
#include "forms/Gestures.h"
#include "forms/Services.h"
#include "notes/frmViewNotes.h"
#include "tests/support/WholeProgram.h"

using namespace forms;

namespace {

class frmMainTest : public testing_support::WholeProgram {
  protected:
    void ExpectRejection(const std::string& title, const std::string& picture,
                         const std::string& caption, const std::string& text) {
        user->Type(Main().txtNoteTitle, title);
        stage->ExpectModal<dlgMsgBox>([&, this](dlgMsgBox& box) {
            EXPECT_EQ(box.imgMsg.picture().path, "C:\\Jotwright\\" + picture);
            EXPECT_EQ(box.caption(), caption);
            EXPECT_EQ(box.lblMsg.caption(), text);
            user->Click(box.cmdOk);
        });
        user->Click(Main().cmdMakeNote);
    }

    static void ExpectControl(const CommandButton& button, const std::string& caption,
                              const std::string& toolTip) {
        EXPECT_EQ(button.caption(), caption);
        EXPECT_EQ(button.toolTip(), toolTip);
    }
};

constexpr const char* maximumText =
    "The maximum number of 100 notes has been reached.\r\n\r\n"
    "Exsiting notes will have to be deleted before more can be created.\r\n ";

}  // namespace

TEST_F(frmMainTest, CaptionsAndToolTips) {
    StartQuietly();
    auto& main = Main();
    EXPECT_EQ(main.caption(), "Jotwright");
    EXPECT_EQ(main.fraNotes.caption(), "Note Center");
    EXPECT_EQ(main.Label1.caption(), "Enter A Name For Your New Note.");
    EXPECT_EQ(main.Label1.toolTip(), "Right click to view the menu.");
    ExpectControl(main.cmdMakeNote, "Make &Note", "Make a new note");
    EXPECT_EQ(main.fraTools.caption(), "Tool Bin");
    ExpectControl(main.cmdSpecialAlarms, "S&pecial Alarms", "View or Edit Special Alarms");
    ExpectControl(main.cmdViewNotes, "Notes &Control Panel", "Open the notes control panel");
    ExpectControl(main.cmdTimer, "&Timer", "Open the timer");
    ExpectControl(main.cmdStopWatch, "&Stop Watch", "Open the stop watch");
    ExpectControl(main.cmdCookoo, "Start CooKoo &Clock", "Start the cookoo clock");
    ExpectControl(main.cmdHideMe, "&Hide Me", "Hide Jotwright In Tray");
    ExpectControl(main.cmdExit, "E&xit", "Close Jotwright");
    EXPECT_EQ(main.lblCooKoo.caption(), "CooKoo Clock Is Activated");
    EXPECT_FALSE(main.lblCooKoo.visible);
    EXPECT_EQ(main.lblClick.caption(), "Right click to view main menu.");
    EXPECT_EQ(main.imgLogo.toolTip(), "Click the logo  to visit the Jotwright website.");
    EXPECT_EQ(main.imgLogo.picture().path, "C:\\Jotwright\\jotwright_title.gif");
    EXPECT_EQ(main.lblCopyright.caption(), StandardCode::ownershipNotice);
    EXPECT_EQ(main.lblCopyright.toolTip(), "Right click to view the menu.");
}

TEST_F(frmMainTest, TimersAtStart) {
    StartQuietly();
    EXPECT_EQ(Main().tmrNow.interval(), 1000);
    EXPECT_TRUE(Main().tmrNow.enabled);
    EXPECT_EQ(Main().tmrCooKoo.interval(), 1000);
    EXPECT_FALSE(Main().tmrCooKoo.enabled);
    EXPECT_EQ(Main().tmrSpecialNotes.interval(), 1000);
    EXPECT_TRUE(Main().tmrSpecialNotes.enabled);
    EXPECT_EQ(Main().tmrCheckSoundFile.interval(), 500);
    EXPECT_TRUE(Main().tmrCheckSoundFile.enabled);
}

TEST_F(frmMainTest, MenuBar) {
    StartQuietly();
    const auto captions = [](const Menu& menu) {
        std::vector<std::string> all{menu.caption()};
        for (const Menu* entry : menu.entries) {
            all.push_back(entry->caption());
        }
        return all;
    };
    using Texts = std::vector<std::string>;
    EXPECT_EQ(captions(Main().mnuFile), (Texts{"&File", "-", "&Exit"}));
    EXPECT_EQ(captions(Main().mnuTools), (Texts{"&Tools", "Special A&larms", "Notes Co&ntrol Panel",
                                                "&Timer", "&Stop Watch", "O&ptions"}));
    EXPECT_EQ(captions(Main().mnuSepOpt),
              (Texts{"O&ptions", "&Choose Alarm Sound", "Note Options"}));
    EXPECT_EQ(captions(Main().mnuFileHelp),
              (Texts{"&Help", "&About", "&Help Files", "&Visit Jotwright Web Site",
                     "&Show Jotwright Tips"}));
    EXPECT_EQ(
        captions(Main().mnuPop),
        (Texts{"Pop", "About Jotwright", "Help", "Visit Jotwright Web Site", "Show Jotwright Tips",
               "-", "Hide Jotwright", "Show Jotwright", "Timer", "Stop Watch", "Change Alarm Sound",
               "Special Alarms", "Notes Control Panel", "-", "Exit"}));
    EXPECT_FALSE(Main().mnuPop.inMenuBar);
}

TEST_F(frmMainTest, TheTrayRecord) {
    StartQuietly();
    ASSERT_TRUE(tray.icon.has_value());
    EXPECT_EQ(tray.icon->structureSize, 88U);
    EXPECT_EQ(tray.icon->owner, &Main());
    EXPECT_EQ(tray.icon->iconId, 1U);
    EXPECT_EQ(tray.icon->flags, 7U);
    EXPECT_EQ(tray.icon->callbackMessage, 512U);
    EXPECT_EQ(tray.icon->iconPath, "C:\\Jotwright\\logo.ico");
    EXPECT_EQ(tray.icon->tip, std::string("Jotwright\0", 10) + std::string(54, ' '));
}

TEST_F(frmMainTest, HidingAndShowing) {
    StartQuietly();
    EXPECT_TRUE(Main().mnuHide.enabled);
    EXPECT_FALSE(Main().mnuShow.enabled);
    user->Click(Main().cmdHideMe);
    EXPECT_FALSE(Main().IsShownOnStage());
    EXPECT_TRUE(tray.icon.has_value());
    EXPECT_FALSE(Main().mnuHide.enabled);
    EXPECT_TRUE(Main().mnuShow.enabled);
    stage->ExpectPopup("mnuPop", "mnuShow");
    user->Tray(517);
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
    EXPECT_TRUE(Main().mnuHide.enabled);
    EXPECT_FALSE(Main().mnuShow.enabled);
    stage->ExpectPopup("mnuPop", "mnuHide");
    user->Tray(517);
    EXPECT_FALSE(Main().IsShownOnStage());
}

TEST_F(frmMainTest, ALeftClickOnTheTrayIconRestoresAMinimisedWindow) {
    StartQuietly();
    user->Minimize(Main());
    Start([this] {
        Main().mnuHide.enabled = false;
        Main().mnuShow.enabled = true;
    });
    user->Tray(514);
    EXPECT_EQ(Main().windowState(), WindowState::Normal);
    EXPECT_EQ(stage->Foreground(), &Main());
    EXPECT_TRUE(Main().mnuHide.enabled);
    EXPECT_FALSE(Main().mnuShow.enabled);
}

TEST_F(frmMainTest, ALeftClickOnTheTrayIconShowsAHiddenWindow) {
    StartQuietly();
    user->Click(Main().cmdHideMe);
    user->Tray(514);
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_EQ(stage->Foreground(), &Main());
    EXPECT_FALSE(Main().txtNoteTitle.HasFocus());
    EXPECT_TRUE(Main().mnuHide.enabled);
    EXPECT_FALSE(Main().mnuShow.enabled);
}

TEST_F(frmMainTest, ADoubleClickOnTheTrayIconAlsoFocusesTheTitle) {
    StartQuietly();
    user->Minimize(Main());
    user->Tray(515);
    EXPECT_EQ(Main().windowState(), WindowState::Normal);
    user->Click(Main().cmdHideMe);
    user->Tray(515);
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_EQ(stage->Foreground(), &Main());
    EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
    EXPECT_TRUE(Main().mnuHide.enabled);
    EXPECT_FALSE(Main().mnuShow.enabled);
}

TEST_F(frmMainTest, ARightClickOnTheTrayIconOpensTheMenuWhileTheWindowIsHidden) {
    StartQuietly();
    user->Click(Main().cmdHideMe);
    stage->ExpectPopup("mnuPop", [this](Menu&) -> Menu* {
        EXPECT_EQ(stage->Foreground(), &Main());
        return nullptr;
    });
    user->Tray(517);
    EXPECT_FALSE(Main().IsShownOnStage());
}

TEST_F(frmMainTest, TheMousePointerIsSetBack) {
    Start([] { SetMousePointer(MousePointer::Hourglass); });
    StartQuietly();
    EXPECT_EQ(stage->Pointer(), MousePointer::Default);
    Start([] { SetMousePointer(MousePointer::Hourglass); });
    user->Tray(513);
    EXPECT_EQ(stage->Pointer(), MousePointer::Default);
}

TEST_F(frmMainTest, ThePointerIsNoTrayMessage) {
    StartQuietly();
    user->Click(Main().cmdTimer);
    for (const int column : {512, 513, 514, 515, 516, 517, 518, 519}) {
        for (const int twips : {0, 14}) {
            Start([] { SetMousePointer(MousePointer::Hourglass); });
            user->MouseMove(Main(), column * 15 + twips);
            EXPECT_EQ(stage->Pointer(), MousePointer::Default) << column;
        }
    }
    EXPECT_TRUE(stage->Popups().empty());
    EXPECT_EQ(stage->Foreground(), nullptr);
    EXPECT_FALSE(Main().txtNoteTitle.HasFocus());
    EXPECT_NE(runtime->ActiveForm(), &Main());
}

// The menu lets the pointer move on while the message is being handled.
TEST_F(frmMainTest, ThePointerIsNoTrayMessageWhileOneIsHandled) {
    StartQuietly();
    stage->ExpectPopup("mnuPop", [this](Menu&) -> Menu* {
        gestures::MouseMove(Main(), 0, 517 * 15, 0);
        return nullptr;
    });
    user->Tray(517);
    EXPECT_EQ(stage->Popups().size(), 1U);
}

TEST_F(frmMainTest, ShowAfterMinimisingAndHidingBringsTheWindowBack) {
    StartQuietly();
    user->Minimize(Main());
    stage->ExpectPopup("mnuPop", "mnuHide");
    user->Tray(517);
    ASSERT_FALSE(Main().IsShownOnStage());
    stage->ExpectPopup("mnuPop", "mnuShow");
    user->Tray(517);
    EXPECT_TRUE(Main().IsShownOnStage());
    EXPECT_EQ(Main().windowState(), WindowState::Normal);
    EXPECT_EQ(stage->WindowOf(Main()).state, WindowState::Normal);
    EXPECT_EQ(runtime->ActiveForm(), &Main());
    EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
}

TEST_F(frmMainTest, TheTipOfTheIconFillsItsField) {
    StartQuietly();
    ASSERT_TRUE(tray.icon);
    EXPECT_EQ(tray.icon->tip, std::string("Jotwright") + '\0' + std::string(54, ' '));
}

TEST_F(frmMainTest, OtherTrayMessagesDoNothing) {
    StartQuietly();
    user->Click(Main().cmdHideMe);
    for (const int message : {512, 513, 516, 518, 519}) {
        user->Tray(message);
    }
    EXPECT_FALSE(Main().IsShownOnStage());
}

TEST_F(frmMainTest, TheRightButtonOpensTheMenuEverywhere) {
    StartQuietly();
    stage->ExpectPopupDismissed("mnuPop");
    user->RightClick(Main());
    user->Click(Main().cmdCookoo);  // shows lblCooKoo
    Control* const places[] = {&Main().fraNotes, &Main().fraTools,  &Main().Label1,
                               &Main().lblClick, &Main().lblCooKoo, &Main().lblCopyright,
                               &Main().imgLogo};
    for (Control* place : places) {
        stage->ExpectPopupDismissed("mnuPop");
        user->RightClick(*place);
    }
}

TEST_F(frmMainTest, MakingANoteOpensItsEditorAndHidesTheMainWindow) {
    settings.values[{"Options", "DefaultColor"}] = "3";
    settings.values[{"Options", "DefaultFontSize"}] = "3";
    StartQuietly();
    StandardCode::Shared().ControlPanelMode = true;
    StandardCode::Shared().NoteFlag = 1;
    auto& note = MakeNote(" Dentist ");
    EXPECT_EQ(note.caption(), " Dentist ");
    EXPECT_EQ(note.txtNote.backColor(), (Color{128, 128, 255}));
    EXPECT_EQ(note.txtNote.foreColor(), white);
    EXPECT_TRUE(note.mnuBlue.checked);
    EXPECT_FALSE(note.mnuWhite.checked);
    EXPECT_EQ(note.txtNote.fontSize(), 16);
    EXPECT_TRUE(note.mnu16.checked);
    EXPECT_TRUE(note.txtNote.HasFocus());
    EXPECT_EQ(Main().txtNoteTitle.text(), "");
    EXPECT_FALSE(note.IsModal());
    EXPECT_EQ(Main().ActiveControl(), &Main().txtNoteTitle);
    EXPECT_FALSE(Main().IsShownOnStage());
    EXPECT_FALSE(Main().mnuHide.enabled);
    EXPECT_TRUE(Main().mnuShow.enabled);
    EXPECT_FALSE(StandardCode::Shared().ControlPanelMode);
    EXPECT_EQ(StandardCode::Shared().NoteFlag, 0);
    EXPECT_FALSE(files.Peek(NoteFile(" Dentist ")).has_value());
}

TEST_F(frmMainTest, EnterInTheTitleBoxMakesTheNote) {
    StartQuietly();
    user->Type(Main().txtNoteTitle, "Dentist");
    user->PressEnter();
    EXPECT_NE(FindWindow<frmNote>("Dentist"), nullptr);
}

TEST_F(frmMainTest, ANumericTitleIsRejectedAndStaysInTheBox) {
    StartQuietly();
    ExpectRejection("2004", "letters.gif", " Note Title Error",
                    "Note titles can't contain numeric characters only.\r\n Please add a couple "
                    "of letters.");
    EXPECT_EQ(Main().txtNoteTitle.text(), "2004");
    MakeNote("2004 plans");
}

TEST_F(frmMainTest, RejectedTitlesAreClearedAndFocused) {
    StartQuietly();
    const auto expectCleared = [this] {
        EXPECT_EQ(Main().txtNoteTitle.text(), "");
        EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
        EXPECT_EQ(CountVisible<frmNote>(), 0);
    };
    ExpectRejection("", "mascot_error.gif", "  Note Title Error",
                    "Please Enter A Title For Your Note.\r\n");
    expectCleared();
    ExpectRejection("a/b", "no_Fslash.gif", "  Note Title Error",
                    "Note titles can't contain a forwardslash.");
    expectCleared();
    ExpectRejection("a\\b", "no_Fslash.gif", "  Note Title Error",
                    "Note titles can't contain a backslash.");
    expectCleared();
    ExpectRejection("a.b", "error.gif", "Note Title Error", "Note titles can't contain a period.");
    expectCleared();
    ExpectRejection("a\"b", "error.gif", "Note Title Error",
                    "Note titles can't contain a double quote.");
    expectCleared();
}

TEST_F(frmMainTest, ATitleOfBlanksIsClearedWithoutAMessage) {
    StartQuietly();
    user->Type(Main().txtNoteTitle, "   ");
    user->Click(Main().cmdMakeNote);
    EXPECT_EQ(Main().txtNoteTitle.text(), "");
    EXPECT_TRUE(Main().txtNoteTitle.HasFocus());
    EXPECT_TRUE(Main().IsVisible());
}

TEST_F(frmMainTest, ASavedTitleIsRejectedInTheSameLettersOnly) {
    PutNote("Shopping");
    StartQuietly();
    ExpectRejection("Shopping", "error.gif", "Name Already Exists",
                    "A note with this title already exits.\r\n\r\nPlease choose another title for "
                    "your new note.");
    auto& note = MakeNote("shopping");
    user->Type(note.txtNote, "in small letters");
    user->CloseBox(note);
    // The names are one to the disk: the new note takes the place of the saved one.
    EXPECT_EQ(files.Names("C:\\Jotwright\\Notes"), std::vector<std::string>{"Shopping.txt"});
    EXPECT_NE(files.Peek(NoteFile("Shopping"))->find("in small letters"), std::string::npos);
}

TEST_F(frmMainTest, TwoNewNotesWithOneTitleMayBeOpen) {
    StartQuietly();
    MakeNote("Shopping");
    MakeNote("Shopping");
    EXPECT_EQ(CountVisible<frmNote>(), 2);
}

TEST_F(frmMainTest, AMissingPictureIsReportedAsAnErrorOfTheNote) {
    StartQuietly();
    files.Remove("C:\\Jotwright\\note.ico");
    user->Type(Main().txtNoteTitle, "Dentist");
    stage->ExpectBox("Error Creating New Note. File not found      ", "Note Error",
                     BoxIcon::Critical, BoxButtons::Ok, BoxResult::Ok);
    user->Click(Main().cmdMakeNote);
    EXPECT_FALSE(runtime->HasEnded());
}

TEST_F(frmMainTest, AMissingPictureOfARejectionIsAnErrorOfTheNote) {
    StartQuietly();
    files.Remove("C:\\Jotwright\\error.gif");
    user->Type(Main().txtNoteTitle, "a.b");
    stage->ExpectBox("Error Creating New Note. File not found      ", "Note Error",
                     BoxIcon::Critical, BoxButtons::Ok, BoxResult::Ok);
    user->Click(Main().cmdMakeNote);
    EXPECT_EQ(Main().txtNoteTitle.text(), "a.b");
    EXPECT_FALSE(runtime->HasEnded());
}

TEST_F(frmMainTest, ADefaultThatIsNoNumberIsAnErrorOfTheNote) {
    settings.values[{"Options", "DefaultColor"}] = "blue";
    StartQuietly();
    user->Type(Main().txtNoteTitle, "Dentist");
    stage->ExpectBox("Error Creating New Note. Type mismatch      ", "Note Error",
                     BoxIcon::Critical, BoxButtons::Ok, BoxResult::Ok);
    user->Click(Main().cmdMakeNote);
    EXPECT_EQ(Main().txtNoteTitle.text(), "Dentist");
    EXPECT_TRUE(Main().IsShownOnStage());
}

TEST_F(frmMainTest, BelowTheLimitAClickEnablesTheTitleBoxBeforeTheTitleIsLookedAt) {
    StartQuietly();
    user->Type(Main().txtNoteTitle, "2004");
    Main().txtNoteTitle.enabled = false;
    stage->ExpectModal<dlgMsgBox>([this](dlgMsgBox& box) {
        EXPECT_TRUE(Main().txtNoteTitle.enabled);
        user->Click(box.cmdOk);
    });
    user->Click(Main().cmdMakeNote);
}

TEST_F(frmMainTest, WithAHundredNotesTheLimitIsToldAtStart) {
    for (int number = 1; number <= 100; ++number) {
        PutNote("Note " + std::to_string(number));
    }
    settings.values[{"Options", "StartCookoo"}] = "1";
    stage->ExpectBox(maximumText, "Jotwright: Maximum Notes Reached", BoxIcon::Information,
                     BoxButtons::Ok, BoxResult::Ok, [this] {
                         // The notes are back; the cuckoo and the tray icon are still to come.
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

TEST_F(frmMainTest, AtTheLimitAClickThatGetsThroughStillMakesTheNote) {
    for (int number = 1; number <= 100; ++number) {
        PutNote("Note " + std::to_string(number));
    }
    stage->ExpectBox(maximumText, "Jotwright: Maximum Notes Reached", BoxIcon::Information,
                     BoxButtons::Ok, BoxResult::Ok);
    StartQuietly();
    Main().cmdMakeNote.enabled = true;
    Main().txtNoteTitle.enabled = true;
    user->Type(Main().txtNoteTitle, "One more");
    stage->ExpectBox(maximumText, "Jotwright: Maximum Notes Reached", BoxIcon::Information,
                     BoxButtons::Ok, BoxResult::Ok);
    user->Click(Main().cmdMakeNote);
    EXPECT_FALSE(Main().cmdMakeNote.enabled);
    EXPECT_FALSE(Main().txtNoteTitle.enabled);
    EXPECT_NE(FindWindow<frmNote>("One more"), nullptr);
}

TEST_F(frmMainTest, SavingTheHundredthNoteTakesMakeNoteAway) {
    for (int number = 1; number <= 99; ++number) {
        PutNote("Note " + std::to_string(number));
    }
    StartQuietly();
    auto& note = MakeNote("The hundredth");
    EXPECT_TRUE(Main().cmdMakeNote.enabled);
    user->CloseBox(note);
    EXPECT_EQ(StandardCode::Shared().NoteCount, 100);
    EXPECT_FALSE(Main().cmdMakeNote.enabled);
    EXPECT_FALSE(Main().txtNoteTitle.enabled);
}

TEST_F(frmMainTest, WithAHundredAndOneFilesTheLimitHoldsAndEachActionReportsOnce) {
    for (int number = 1; number <= 101; ++number) {
        PutNote("Note " + std::to_string(1000 + number));
    }
    const auto captions = [this] {
        std::vector<std::string> all;
        for (const BoxRequest& box : stage->Boxes()) {
            all.push_back(box.caption);
        }
        return all;
    };
    const std::string failed = "Error Loading Notes Array";
    std::vector<std::string> expected{failed, "Jotwright: Maximum Notes Reached"};
    stage->improvise.box = [](const BoxRequest&) { return BoxResult::Ok; };
    StartQuietly();
    EXPECT_EQ(captions(), expected);
    EXPECT_EQ(stage->Boxes().front().text, "Error Number: 9) - Subscript out of range");
    EXPECT_FALSE(Main().cmdMakeNote.enabled());
    EXPECT_FALSE(Main().txtNoteTitle.enabled());
    EXPECT_EQ(StandardCode::Shared().NoteCount, 100);

    user->Click(Main().cmdViewNotes);
    expected.push_back(failed);
    EXPECT_EQ(captions(), expected);
    EXPECT_EQ(Default<frmViewNotes>().lblTotalNotes.caption(),
              "Total Notes: 100 ( Maximum Reached )");
    EXPECT_FALSE(Default<frmViewNotes>().cmdNew.enabled());

    user->Restore(Editor("Note 1001"));
    user->Type(Editor("Note 1001").txtNote, "changed text");
    StandardCode::Shared().ControlPanelMode = false;
    user->CloseBox(Editor("Note 1001"));
    expected.push_back(failed);
    EXPECT_EQ(captions(), expected);

    Start([this] { Main().Unload(); });
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_EQ(captions(), expected);
}

// One file that cannot be read, and many open notes: an exit that saves them all reports nothing
// more.
TEST_F(frmMainTest, OneBadFileIsNotReportedForEachNoteThatTheExitSaves) {
    for (int number = 1; number <= 10; ++number) {
        PutNote("Note " + std::to_string(1000 + number));
    }
    PutNote("Zebra", "#2004-02-30#,#12:00:00#,1,12,\"0\",0,\"yes\"\r\n");
    stage->improvise.box = [](const BoxRequest&) { return BoxResult::Ok; };
    StartQuietly();
    // The array and the restore report it, once each.
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
