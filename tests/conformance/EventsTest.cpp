#include "base/RuntimeError.h"
#include "tests/conformance/Stand.h"

using namespace forms;
using conformance::Lines;

namespace {

class frmEvents : public Form {
  public:
    frmEvents() : Form("frmEvents") {}
    Menu mnuFile{this, "mnuFile"};
    Menu mnuSave{this, mnuFile, "mnuSave"};
    Menu mnuPop{this, "mnuPop"};
    Menu mnuShow{this, mnuPop, "mnuShow"};
    Menu mnuHide{this, mnuPop, "mnuHide"};
    Label lblName{this, "lblName"};
    TextBox txtName{this, "txtName"};
    CommandButton cmdOk{this, "cmdOk"};
    CommandButton cmdCancel{this, "cmdCancel"};
    CheckBox chkSound{this, "chkSound"};
    Frame fraColor{this, "fraColor"};
    OptionButton optRed{this, "optColor", 0};
    OptionButton optBlue{this, "optColor", 1};
    OptionButton optGreen{this, "optColor", 2};
    Frame fraSize{this, "fraSize"};
    OptionButton optBig{this, "optSize"};
    ComboBox cboDay{this, "cboDay"};
    Timer tmrTick{this, "tmrTick"};

    void Design() override {
        caption = "Events";
        width = 6000;
        height = 6000;
        mnuFile.caption = "&File";
        mnuSave.caption = "&Save";
        mnuPop.inMenuBar = false;
        mnuShow.caption = "Show";
        mnuHide.caption = "Hide";
        lblName.caption = "&Name";
        lblName.Place(120, 120, 600, 240);
        txtName.Place(840, 120, 2000, 285);
        cmdOk.caption = "&OK";
        cmdOk.isDefault = true;
        cmdOk.Place(120, 600, 1215, 375);
        cmdCancel.caption = "Cancel";
        cmdCancel.isCancel = true;
        cmdCancel.Place(1500, 600, 1215, 375);
        chkSound.caption = "Soun&d";
        chkSound.Place(120, 1200, 1215, 285);
        fraColor.caption = "Colour";
        fraColor.Place(120, 1600, 2400, 1500);
        optRed.PlaceIn(fraColor, 120, 300, 1215, 285);
        optBlue.PlaceIn(fraColor, 120, 700, 1215, 285);
        optGreen.PlaceIn(fraColor, 120, 1100, 1215, 285);
        fraSize.caption = "Size";
        fraSize.Place(2700, 1600, 2400, 1500);
        optBig.PlaceIn(fraSize, 120, 300, 1215, 285);
        cboDay.items = {"Monday", "Tuesday", "Wednesday"};
        cboDay.Place(120, 3300, 2000, 315);

        optRed.Click = [this] { Note("red"); };
        optBlue.Click = [this] { Note("blue"); };
        optGreen.Click = [this] { Note("green"); };
        optBig.Click = [this] { Note("big"); };
        chkSound.Click = [this] { Note("sound " + std::to_string(chkSound.value())); };
        txtName.Change = [this] { Note("name " + txtName.text()); };
        cboDay.Click = [this] { Note("day " + cboDay.Text()); };
        cmdOk.Click = [this] { Note("ok"); };
        cmdCancel.Click = [this] { Note("cancel"); };
        mnuSave.Click = [this] { Note("save"); };
        mnuShow.Click = [this] { Note("show"); };
        mnuHide.Click = [this] { Note("hide"); };
    }

    Lines events;
    void Note(const std::string& event) { events.push_back(event); }
};

class EventsTest : public conformance::StandTest {
  protected:
    void SetUp() override {
        StandTest::SetUp();
        Start([] { Default<frmEvents>().Show(); });
        Default<frmEvents>().events.clear();
    }
    static frmEvents& Form() { return Default<frmEvents>(); }
    static Lines Take() {
        Lines taken;
        taken.swap(Form().events);
        return taken;
    }
};

}  // namespace

TEST_F(EventsTest, AClickRaisesClickOnce) {
    stand->Click(Form().cmdOk);
    EXPECT_EQ(Take(), Lines{"ok"});
    EXPECT_TRUE(Form().cmdOk.HasFocus());
}

TEST_F(EventsTest, ATextRaisesChangeForTheUserAndForCode) {
    stand->Type(Form().txtName, "typed");
    EXPECT_EQ(Take(), Lines{"name typed"});
    Start([] { Form().txtName.text = "by code"; });
    EXPECT_EQ(Take(), Lines{"name by code"});
    Start([] { Form().txtName.text = "by code"; });
    EXPECT_EQ(Take(), Lines{});
    EXPECT_EQ(stand->ShownText(Form().txtName), "by code");
}

TEST_F(EventsTest, TextsAreUnicode) {
    stand->Type(Form().txtName, "na\xC3\xAFve \xE6\x97\xA5\xE6\x9C\xAC");
    EXPECT_EQ(Form().txtName.text(), "na\xC3\xAFve \xE6\x97\xA5\xE6\x9C\xAC");
    Start([] { Form().cmdOk.caption = "\xC3\x84ndern"; });
    EXPECT_EQ(stand->ShownCaption(Form().cmdOk), "\xC3\x84ndern");
}

TEST_F(EventsTest, ACheckBoxRaisesClickForTheUserAndForCode) {
    stand->Click(Form().chkSound);
    EXPECT_EQ(Take(), Lines{"sound 1"});
    EXPECT_TRUE(stand->IsShownChecked(Form().chkSound));
    Start([] { Form().chkSound.value = 0; });
    EXPECT_EQ(Take(), Lines{"sound 0"});
    EXPECT_FALSE(stand->IsShownChecked(Form().chkSound));
    Start([] { Form().chkSound.value = 0; });
    EXPECT_EQ(Take(), Lines{});
}

TEST_F(EventsTest, ACheckBoxThatItsHandlerResetsShowsTheModelsValue) {
    Form().chkSound.Click = [] {
        if (Form().chkSound.value() == 1) {
            Form().chkSound.value = 0;
        }
    };
    stand->Click(Form().chkSound);
    EXPECT_EQ(Form().chkSound.value(), 0);
    EXPECT_FALSE(stand->IsShownChecked(Form().chkSound));
}

TEST_F(EventsTest, OptionButtonsExcludeEachOtherWithinTheirFrame) {
    stand->Click(Form().optRed);
    stand->Click(Form().optBlue);
    Start([] { Form().optBig.value = true; });
    EXPECT_EQ(Take(), (Lines{"red", "blue", "big"}));
    EXPECT_FALSE(stand->IsShownChecked(Form().optRed));
    EXPECT_TRUE(stand->IsShownChecked(Form().optBlue));
    EXPECT_TRUE(stand->IsShownChecked(Form().optBig));
    Start([] { Form().optRed.value = true; });
    EXPECT_EQ(Take(), Lines{"red"});
    EXPECT_TRUE(stand->IsShownChecked(Form().optRed));
    EXPECT_FALSE(stand->IsShownChecked(Form().optBlue));
    stand->Click(Form().optRed);
    EXPECT_EQ(Take(), Lines{});
}

TEST_F(EventsTest, AComboBoxRaisesClickForTheUserAndForCode) {
    stand->Select(Form().cboDay, 1);
    Start([] { Form().cboDay.listIndex = 2; });
    EXPECT_EQ(Take(), (Lines{"day Tuesday", "day Wednesday"}));
}

TEST_F(EventsTest, AComboBoxRaisesClickWhenTheSameEntryIsChosenAgain) {
    stand->Select(Form().cboDay, 1);
    stand->Select(Form().cboDay, 1);
    Start([] { Form().cboDay.listIndex = 1; });
    EXPECT_EQ(Take(), (Lines{"day Tuesday", "day Tuesday"}));
}

TEST_F(EventsTest, AMenuEntryRunsItsHandler) {
    stand->Choose(Form().mnuSave);
    EXPECT_EQ(Take(), Lines{"save"});
}

TEST_F(EventsTest, APopupMenuRunsTheChosenEntryAndTimersGoOnUnderIt) {
    int ticks = 0;
    Start([&ticks] {
        Form().tmrTick.Tick = [&ticks] { ++ticks; };
        Form().tmrTick.interval = 40;
        Form().tmrTick.enabled = true;
    });
    const int before = ticks;
    stand->stayOpenUntil = [&] { return ticks >= before + 5; };
    stand->ExpectPopup(Form().mnuPop, &Form().mnuHide);
    Start([] {
        Form().PopupMenu(Form().mnuPop);
        Form().Note("returned");
    });
    EXPECT_EQ(Take(), (Lines{"hide", "returned"}));
    stand->stayOpenUntil = nullptr;
    stand->Pump(100);
    stand->ExpectPopup(Form().mnuPop, nullptr);
    Start([] { Form().PopupMenu(Form().mnuPop); });
    EXPECT_EQ(Take(), Lines{});
}

TEST_F(EventsTest, DisabledAndHiddenControlsCannotBeReached) {
    Start([] {
        Form().cmdOk.enabled = false;
        Form().fraColor.enabled = false;
        Form().chkSound.visible = false;
        Form().fraSize.visible = false;
    });
    EXPECT_FALSE(stand->CanBeUsed(Form().cmdOk));
    EXPECT_FALSE(stand->CanBeUsed(Form().optRed));
    EXPECT_FALSE(stand->CanBeUsed(Form().chkSound));
    EXPECT_FALSE(stand->CanBeUsed(Form().optBig));
    EXPECT_TRUE(stand->CanBeUsed(Form().cmdCancel));
    Start([] {
        Form().cmdOk.enabled = true;
        Form().fraColor.enabled = true;
        Form().fraSize.visible = true;
    });
    stand->Click(Form().cmdOk);
    stand->Click(Form().optBlue);
    stand->Click(Form().optBig);
    EXPECT_EQ(Take(), (Lines{"ok", "blue", "big"}));
}

TEST_F(EventsTest, TabGoesThroughTheControlsInOrder) {
    Start([] {
        Form().optBlue.value = true;
        Form().optBig.value = true;
        Form().txtName.SetFocus();
    });
    Take();
    std::vector<std::string> visited;
    for (int n = 0; n < 7; ++n) {
        stand->PressTab();
        visited.emplace_back(runtime->ActiveForm()->focus.ActiveControl()->name);
    }
    EXPECT_EQ(visited, (Lines{"cmdOk", "cmdCancel", "chkSound", "optColor", "optSize", "cboDay",
                              "txtName"}));
    EXPECT_EQ(Take(), Lines{});
}

TEST_F(EventsTest, EnterAndEscapePressTheirButtons) {
    Start([] { Form().txtName.SetFocus(); });
    stand->PressEnter();
    stand->PressEscape();
    EXPECT_EQ(Take(), (Lines{"ok", "cancel"}));
    Start([] { Form().cmdCancel.SetFocus(); });
    stand->PressEnter();
    EXPECT_EQ(Take(), Lines{"cancel"});
}

TEST_F(EventsTest, EscapeClosesADialogThatHasNoButtonForIt) {
    using namespace forms_under_test;
    auto& dialog = Default<frmSecond>();
    dialog.borderStyle = BorderStyle::Dialog;
    const auto pin = dialog.shared_from_this();
    Start([&dialog] { dialog.Show(); });
    stand->PressEscape();
    EXPECT_FALSE(pin->IsLoaded());
    EXPECT_TRUE(Form().IsLoaded());
}

TEST_F(EventsTest, TheFocusMovesOnIfAHandlerDisablesItsControl) {
    Start([] { Form().cmdOk.SetFocus(); });
    Form().cmdOk.Click = [] {
        Form().cmdOk.enabled = false;
        Form().cmdCancel.enabled = false;
        Form().cmdCancel.enabled = true;
    };
    stand->PressEnter();
    EXPECT_TRUE(Form().cmdCancel.HasFocus());
    stand->PressEnter();
    EXPECT_EQ(Take(), Lines{"cancel"});
    Start([] { Form().cmdCancel.visible = false; });
    stand->PressAccessKey(Form(), 'd');
    EXPECT_EQ(Take(), Lines{"sound 1"});
}

TEST_F(EventsTest, TheMenuKeyOpensTheMenuOfTheRightButton) {
    Form().optBlue.MouseUp = [](int button, int, int) {
        if (button == rightButton) {
            Form().PopupMenu(Form().mnuPop);
        }
    };
    Form().mnuHide.Click = [] { Form().chkSound.value = 1; };
    Start([] {
        Form().optBlue.value = true;
        Form().optBlue.SetFocus();
    });
    Take();
    stand->ExpectPopup(Form().mnuPop, &Form().mnuHide);
    stand->PressMenuKey();
    PumpUntil([] { return Form().chkSound.value == 1; });
    EXPECT_EQ(Take(), Lines{"sound 1"});
}

TEST_F(EventsTest, AccessKeysPressButtonsAndLeadFromLabelsToTheNextControl) {
    Start([] { Form().cmdCancel.SetFocus(); });
    stand->PressAccessKey(Form(), 'n');
    EXPECT_TRUE(Form().txtName.HasFocus());
    EXPECT_EQ(Take(), Lines{});
    stand->PressAccessKey(Form(), 'o');
    stand->PressAccessKey(Form(), 'd');
    EXPECT_EQ(Take(), (Lines{"ok", "sound 1"}));
}

TEST_F(EventsTest, AnAccessKeyOfSeveralCaptionsCyclesThroughThem) {
    Start([] {
        Form().cmdCancel.caption = "Cl&ose";
        Form().txtName.SetFocus();
    });
    stand->PressAccessKey(Form(), 'o');
    EXPECT_TRUE(Form().cmdOk.HasFocus());
    stand->PressAccessKey(Form(), 'o');
    EXPECT_TRUE(Form().cmdCancel.HasFocus());
    stand->PressAccessKey(Form(), 'O');
    EXPECT_TRUE(Form().cmdOk.HasFocus());
    EXPECT_EQ(Take(), Lines{});
    // The keys skip a disabled button.
    Start([] { Form().cmdOk.enabled = false; });
    stand->PressAccessKey(Form(), 'o');
    EXPECT_EQ(Take(), Lines{"cancel"});
}

TEST_F(EventsTest, AnUntrappedErrorIsReportedAndEndsTheProgramInOrder) {
    Lines order;
    runtime->onFatalError = [&order] { order.emplace_back("saved"); };
    Form().cmdOk.Click = [&order] {
        order.emplace_back("clicked");
        throw base::RuntimeError(base::ErrorNumber::Overflow);
    };
    ExpectMessage("Run-time error '6':\r\n\r\nOverflow", "Program",
                  [&order] { order.emplace_back("reported"); });
    const auto pin = Form().shared_from_this();
    stand->Click(Form().cmdOk);
    EXPECT_EQ(order, (Lines{"clicked", "reported", "saved"}));
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_FALSE(stand->IsShown(static_cast<frmEvents&>(*pin)));
}

TEST_F(EventsTest, AnErrorUnderAModalFormLeavesEveryHandler) {
    using namespace forms_under_test;
    bool wentOn = false;
    stand->ExpectModal<frmSecond>([this](frmSecond& form) {
        form.cmdGo.Click = [] { throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange); };
        stand->Click(form.cmdGo);
    });
    ExpectMessage("Run-time error '9':\r\n\r\nSubscript out of range", "Program");
    Start([&wentOn] {
        Default<frmSecond>().ShowModal();
        wentOn = true;
    });
    EXPECT_FALSE(wentOn);
    EXPECT_TRUE(runtime->HasEnded());
}
