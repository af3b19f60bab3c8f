#include <gtest/gtest.h>

#include "base/Text.h"
#include "forms/Form.h"
#include "forms/Gestures.h"
#include "forms/Keyboard.h"
#include "forms/MsgBox.h"
#include "forms/Runtime.h"
#include "tests/support/TestProgram.h"

using namespace forms;

namespace {

class frmGestures : public Form {
  public:
    frmGestures() : Form("frmGestures") {}
    Label lblName{this, "lblName"};
    TextBox txtName{this, "txtName"};
    TextBox txtBody{this, "txtBody"};
    CommandButton cmdOk{this, "cmdOk"};
    CommandButton cmdOther{this, "cmdOther"};
    CommandButton cmdCancel{this, "cmdCancel"};
    CheckBox chkSound{this, "chkSound"};
    OptionButton optRed{this, "optColor", 0};
    OptionButton optBlue{this, "optColor", 1};
    Image imgLogo{this, "imgLogo"};
    Toolbar tlbTools{this, "tlbTools"};
    Timer tmrTick{this, "tmrTick"};
    Menu mnuFile{this, "mnuFile"};
    Menu mnuSave{this, mnuFile, "mnuSave"};
    Menu mnuMore{this, mnuFile, "mnuMore"};
    Menu mnuDeep{this, mnuMore, "mnuDeep"};
    Menu mnuPop{this, "mnuPop"};
    Menu mnuShow{this, mnuPop, "mnuShow"};

    void Design() override {
        borderStyle = BorderStyle::Sizable;
        minimumWidth = 2000;
        lblName.caption = "&Name";
        cmdOk.caption = "&OK";
        cmdOk.isDefault = true;
        cmdOther.caption = "O&ther && more";
        cmdCancel.caption = "Cancel";
        cmdCancel.isCancel = true;
        chkSound.caption = "&Sound";
        txtBody.multiLine = true;
        mnuPop.inMenuBar = false;
        Log(cmdOk.Click, "ok");
        Log(cmdOther.Click, "other");
        Log(cmdCancel.Click, "cancel");
        Log(chkSound.Click, "sound");
        Log(optRed.Click, "red");
        Log(mnuSave.Click, "save");
        Log(mnuDeep.Click, "deep");
        Log(mnuShow.Click, "show");
        Log(txtBody.DoubleClick, "double");
        imgLogo.MouseUp = [this](int button, int, int) {
            events.push_back("logo " + std::to_string(button));
        };
        tlbTools.buttons =
            std::vector<Toolbar::Button>{{"Save", "", "", true}, {"Print", "", "", false}};
        tlbTools.ButtonClick = [this](const std::string& key) { events.push_back(key); };
    }
    void Form_MouseUp(int button, int, int) override {
        events.push_back("form " + std::to_string(button));
    }
    void Form_MouseMove(int, int x, int) override { events.push_back("x " + std::to_string(x)); }
    void Form_Resize() override { ++resized; }

    std::vector<std::string> events;
    int resized = 0;

  private:
    void Log(std::function<void()>& handler, const char* what) {
        handler = [this, what] { events.emplace_back(what); };
    }
};

using Events = std::vector<std::string>;

class GesturesTest : public testing_support::TestProgram {
  protected:
    void SetUp() override {
        TestProgram::SetUp();
        Start([] { Default<frmGestures>().Show(); });
    }
    static frmGestures& Form() { return Default<frmGestures>(); }
    static Events Take() {
        Events taken;
        taken.swap(Form().events);
        return taken;
    }
};

}  // namespace

TEST_F(GesturesTest, GesturesOnHiddenOrDisabledControlsDoNothing) {
    Form().cmdOk.enabled = false;
    gestures::Click(Form().cmdOk);
    Form().chkSound.visible = false;
    gestures::Click(Form().chkSound);
    gestures::ClickToolbar(Form().tlbTools, "Print");
    gestures::ClickToolbar(Form().tlbTools, "Nothing");
    Form().mnuSave.enabled = false;
    gestures::Choose(Form().mnuSave);
    Form().mnuMore.visible = false;
    gestures::Choose(Form().mnuDeep);
    Start([] { Form().Hide(); });
    gestures::Click(Form().cmdOther);
    gestures::MouseUp(Form(), rightButton, 0, 0);
    EXPECT_EQ(Take(), Events{});
    EXPECT_EQ(Form().chkSound.value(), 0);
    EXPECT_EQ(Form().txtName.text(), "");
}

TEST_F(GesturesTest, GesturesOnAFormThatIsNotLoadedDoNothing) {
    Start([] { Form().Unload(); });
    const auto form = New<frmGestures>();
    gestures::Click(form->chkSound);
    gestures::DoubleClick(form->txtBody);
    gestures::ClickToolbar(form->tlbTools, "Save");
    gestures::Typed(form->txtName);
    gestures::Focus(form->cmdOther);
    gestures::MouseUp(form->imgLogo, leftButton, 0, 0);
    gestures::MouseUp(*form, leftButton, 0, 0);
    gestures::MouseMove(*form, 0, 1, 1);
    gestures::TrayMessage(*form, 1);
    gestures::Choose(form->mnuSave);
    gestures::Activate(*form);
    gestures::Close(*form);
    const int width = form->width;
    gestures::Resize(*form, {0, 0, 9000, 9000}, WindowState::Normal);
    EXPECT_EQ(gestures::PressTab(*form), gestures::KeyUse::Unused);
    EXPECT_EQ(form->events, Events{});
    EXPECT_EQ(form->chkSound.value(), 0);
    EXPECT_EQ(form->width(), width);
    EXPECT_EQ(form->resized, 0);
    EXPECT_EQ(runtime->ActiveForm(), nullptr);
}

TEST_F(GesturesTest, MenusAndToolBars) {
    user->Choose(Form().mnuSave);
    user->Choose(Form().mnuDeep);
    user->Click(Form().tlbTools, "Save");
    EXPECT_EQ(Take(), (Events{"save", "deep", "Save"}));
}

TEST_F(GesturesTest, APopupMenuRunsItsEntryBeforeItReturns) {
    stage->ExpectPopup("mnuPop", "mnuShow");
    Start([] {
        Form().PopupMenu(Form().mnuPop);
        Form().events.emplace_back("returned");
    });
    EXPECT_EQ(Take(), (Events{"show", "returned"}));
}

TEST_F(GesturesTest, TimersGoOnUnderAMenu) {
    int ticks = 0;
    Form().tmrTick.Tick = [&ticks] { ++ticks; };
    Form().tmrTick.interval = 250;
    Form().tmrTick.enabled = true;
    stage->ExpectPopup("mnuPop", [this](Menu&) -> Menu* {
        EXPECT_EQ(stage->ReasonForBlocking(), "a pop-up menu is open");
        Advance(1000);
        return nullptr;
    });
    Start([] { Form().PopupMenu(Form().mnuPop); });
    EXPECT_EQ(Take(), Events{});
    EXPECT_EQ(ticks, 4);
}

TEST_F(GesturesTest, TheMouse) {
    user->RightClick(Form());
    user->RightClick(Form().imgLogo);
    user->Click(Form().imgLogo);
    user->MouseMove(Form(), 7710);
    user->DoubleClick(Form().txtBody);
    EXPECT_EQ(Take(), (Events{"form 2", "logo 2", "logo 1", "x 7710", "double"}));
}

TEST_F(GesturesTest, ATrayMessageArrivesAsAPlaceEvenAtAHiddenForm) {
    TrayRecord record;
    record.owner = &Form();
    EXPECT_TRUE(tray.Add(record));
    Start([] { Form().Hide(); });
    ClickTrayIcon();
    EXPECT_EQ(Take(), Events{"x 7710"});
    EXPECT_TRUE(tray.Delete(record));
}

TEST_F(GesturesTest, ATrayMessageArrivesBehindABoxAndAModalForm) {
    TrayRecord record;
    record.owner = &Form();
    EXPECT_TRUE(tray.Add(record));
    ExpectMessage("Hello", "Box", BoxIcon::None, [this] { RightClickTrayIcon(); });
    Start([] { MsgBox("Hello", {}, "Box"); });
    EXPECT_EQ(Take(), Events{"x 7755"});
}

TEST_F(GesturesTest, EnterAndEscapePressTheMarkedButtons) {
    Form().txtName.SetFocus();
    user->PressEnter();
    user->PressEscape();
    EXPECT_EQ(Take(), (Events{"ok", "cancel"}));
    Form().cmdOther.SetFocus();
    user->PressEnter();
    EXPECT_EQ(Take(), Events{"other"});
    Form().txtBody.SetFocus();
    user->PressEnter();
    EXPECT_EQ(Take(), Events{});
    EXPECT_EQ(Form().txtBody.text(), base::lineBreak);
}

TEST_F(GesturesTest, EscapeClosesADialogThatHasNoButtonForIt) {
    Form().cmdCancel.isCancel = false;
    Form().borderStyle = BorderStyle::Dialog;
    const auto pin = Form().shared_from_this();
    user->PressEscape();
    EXPECT_FALSE(pin->IsLoaded());
}

TEST_F(GesturesTest, KeysPressOnlyButtonsThatCanBeUsed) {
    Form().cmdOk.enabled = false;
    Form().cmdCancel.visible = false;
    gestures::PressEnter(Form());
    gestures::PressEscape(Form());
    EXPECT_EQ(Take(), Events{});
    EXPECT_TRUE(Form().IsLoaded());
}

TEST_F(GesturesTest, TheMenuKeyIsARightClickOnTheFocusedControl) {
    Form().txtBody.MouseUp = [](int button, int, int) {
        Form().events.push_back("body " + std::to_string(button));
    };
    Form().txtBody.SetFocus();
    user->PressMenuKey();
    Form().cmdOk.SetFocus();
    user->PressMenuKey();
    EXPECT_EQ(Take(), (Events{"body 2", "form 2"}));
}

TEST_F(GesturesTest, TheFocusMovesOnIfAHandlerDisablesTheFocusedControl) {
    Form().cmdOk.SetFocus();
    Form().cmdOk.Click = [] {
        Form().cmdOk.enabled = false;
        Form().cmdOther.enabled = false;
        // Disabled only for a moment.
        Form().cmdCancel.enabled = false;
        Form().cmdCancel.enabled = true;
    };
    user->PressEnter();
    EXPECT_TRUE(Form().cmdCancel.HasFocus());
    Start([] { Form().cmdOk.enabled = true; });
    EXPECT_TRUE(Form().cmdCancel.HasFocus());
    Start([] { Form().cmdCancel.visible = false; });
    EXPECT_TRUE(Form().chkSound.HasFocus());
}

TEST_F(GesturesTest, TheFocusFirstGoesToTheSelectedButtonOfAGroup) {
    for (Control* control : Form().Controls()) {
        control->enabled = control->kind == ControlKind::OptionButton;
    }
    EXPECT_EQ(Form().focus.ActiveControl(), &Form().optRed);
    Form().optBlue.value = true;
    EXPECT_EQ(Form().focus.ActiveControl(), &Form().optBlue);
}

TEST_F(GesturesTest, TabCyclesInOrderAndSkipsDisabledControls) {
    Form().cmdOther.enabled = false;
    std::vector<std::string> visited;
    Form().txtName.SetFocus();
    for (int n = 0; n < 7; ++n) {
        user->PressTab();
        visited.emplace_back(Form().focus.ActiveControl()->name);
    }
    EXPECT_EQ(visited, (Events{"txtBody", "cmdOk", "cmdCancel", "chkSound", "optColor", "tlbTools",
                               "txtName"}));
    EXPECT_EQ(Take(), Events{});
}

TEST_F(GesturesTest, TabFollowsAGivenOrder) {
    Form().txtName.tabIndex = 100;
    std::vector<std::string> names;
    for (const Control* control : Form().focus.TabOrder()) {
        names.emplace_back(control->name);
    }
    EXPECT_EQ(names.front(), "lblName");
    EXPECT_EQ(names.back(), "txtName");
}

TEST_F(GesturesTest, AccessKeysPressButtonsAndLeadFromLabelsToTheNextControl) {
    user->PressAccessKey(Form(), 'O');
    user->PressAccessKey(Form(), 't');
    user->PressAccessKey(Form(), 'S');
    EXPECT_EQ(Take(), (Events{"ok", "other", "sound"}));
    user->PressAccessKey(Form(), 'n');
    EXPECT_TRUE(Form().txtName.HasFocus());
}

TEST_F(GesturesTest, SizingAndMinimisingAreAdoptedWithoutAskingTheStage) {
    const std::int64_t before = stage->ChangesShown();
    const int resized = Form().resized;
    user->Size(Form(), 1000, 5000);
    EXPECT_EQ(Form().width(), 2000);
    EXPECT_EQ(Form().height(), 5000);
    EXPECT_EQ(Form().resized, resized + 1);
    user->Minimize(Form());
    EXPECT_EQ(Form().windowState(), WindowState::Minimized);
    EXPECT_EQ(Form().resized, resized + 1);
    user->Restore(Form());
    user->Maximize(Form());
    EXPECT_EQ(Form().windowState(), WindowState::Maximized);
    EXPECT_EQ(Form().width(), 2000);
    EXPECT_EQ(stage->ChangesShown(), before);
}

TEST_F(GesturesTest, DraggingMovesTheForm) {
    bool during = false;
    user->Drag(Form(), 300, 600, [&during] { during = true; });
    EXPECT_TRUE(during);
    EXPECT_EQ(Form().left(), 300);
    EXPECT_EQ(Form().top(), 600);
}

TEST_F(GesturesTest, AClickActivatesTheFormAndFocusesTheControl) {
    std::shared_ptr<frmGestures> other;
    Start([&other] {
        other = New<frmGestures>();
        other->Show();
    });
    EXPECT_EQ(runtime->ActiveForm(), other.get());
    user->Click(Form().chkSound);
    EXPECT_EQ(runtime->ActiveForm(), &Form());
    EXPECT_TRUE(Form().chkSound.HasFocus());
    EXPECT_FALSE(other->txtName.HasFocus());
}

TEST_F(GesturesTest, FocusGivenBeforeShowingIsKept) {
    Start([] {
        Form().Hide();
        Form().cmdCancel.SetFocus();
        Form().Show();
    });
    EXPECT_TRUE(Form().cmdCancel.HasFocus());
}

TEST_F(GesturesTest, ADisabledControlDoesNotTakeTheFocus) {
    Form().txtName.SetFocus();
    Form().cmdOther.enabled = false;
    Form().cmdOther.SetFocus();
    EXPECT_TRUE(Form().txtName.HasFocus());
}
