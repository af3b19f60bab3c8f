#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/Form.h"
#include "forms/Keyboard.h"
#include "forms/Runtime.h"
#include "tests/support/TestProgram.h"

using namespace forms;
using gestures::KeyUse;

namespace {

class frmKeys : public Form {
  public:
    frmKeys() : Form("frmKeys") {}
    Frame fraInner{this, "fraInner"};
    Frame fraOuter{this, "fraOuter"};
    Image imgBelow{this, "imgBelow"};
    Label lblAbove{this, "lblAbove"};
    Image imgLater{this, "imgLater"};
    Shape shpLast{this, "shpLast"};
    TextBox txtLine{this, "txtLine"};
    TextBox txtBody{this, "txtBody"};
    OptionButton optFirst{this, "optFirst"};
    OptionButton optSecond{this, "optSecond"};
    OptionButton optThird{this, "optThird"};
    Toolbar tlbTools{this, "tlbTools"};
    CommandButton cmdOk{this, "cmdOk"};

    void Design() override {
        fraOuter.Place(0, 0, 3000, 3000);
        fraInner.PlaceIn(fraOuter, 150, 150, 2000, 2000);
        imgBelow.PlaceIn(fraInner, 150, 150, 600, 600);
        lblAbove.PlaceIn(fraInner, 150, 150, 300, 300);
        imgLater.PlaceIn(fraInner, 150, 150, 450, 450);
        shpLast.PlaceIn(fraInner, 0, 0, 1500, 1500);
        txtBody.multiLine = true;
        cmdOk.caption = "&OK";
        cmdOk.isDefault = true;
        cmdOk.Click = [this] { ++presses; };
    }
    void Form_MouseUp(int /*button*/, int /*x*/, int /*y*/) override { ++formMenus; }

    int presses = 0;
    int formMenus = 0;
};

class FormKeyboardTest : public testing_support::TestProgram {
  protected:
    void SetUp() override {
        TestProgram::SetUp();
        Start([] { Default<frmKeys>().Show(); });
    }
    static frmKeys& Form() { return Default<frmKeys>(); }
};

}  // namespace

TEST_F(FormKeyboardTest, ThePointerFindsTheControlOnTop) {
    EXPECT_EQ(Form().ControlAt(299, 299), &Form().fraInner);
    EXPECT_EQ(Form().ControlAt(300, 300), &Form().lblAbove);
    EXPECT_EQ(Form().ControlAt(599, 599), &Form().lblAbove);
    EXPECT_EQ(Form().ControlAt(600, 600), &Form().imgLater);
    EXPECT_EQ(Form().ControlAt(750, 750), &Form().imgBelow);
    EXPECT_EQ(Form().ControlAt(1000, 1000), &Form().fraInner);
    EXPECT_EQ(Form().ControlAt(2500, 2500), &Form().fraOuter);
    EXPECT_EQ(Form().ControlAt(3000, 0), nullptr);
    Form().lblAbove.visible = false;
    EXPECT_EQ(Form().ControlAt(300, 300), &Form().imgLater);
    Form().fraInner.visible = false;
    EXPECT_EQ(Form().ControlAt(300, 300), &Form().fraOuter);
}

TEST_F(FormKeyboardTest, EnterPressesTheDefaultButtonFromABoxThatTakesNoText) {
    Form().txtBody.SetFocus();
    EXPECT_EQ(gestures::PressEnter(Form()), KeyUse::ByControl);
    EXPECT_EQ(Form().presses, 0);
    Form().txtBody.readOnly = true;
    EXPECT_EQ(gestures::PressEnter(Form()), KeyUse::Used);
    EXPECT_EQ(Form().presses, 1);
    Form().tlbTools.SetFocus();
    EXPECT_EQ(gestures::PressEnter(Form()), KeyUse::ByControl);
    EXPECT_EQ(Form().presses, 1);
}

TEST_F(FormKeyboardTest, TheMenuKeyOpensTheOwnMenuOfATextUnlessTheTextLeavesIt) {
    Form().txtLine.SetFocus();
    EXPECT_EQ(gestures::PressMenuKey(Form()), KeyUse::ByControl);
    EXPECT_EQ(Form().formMenus, 0);
    Form().txtLine.leavesMenuKey = true;
    EXPECT_EQ(gestures::PressMenuKey(Form()), KeyUse::Used);
    EXPECT_EQ(Form().formMenus, 1);
}

TEST_F(FormKeyboardTest, TabStopsOnceInAGroupAndGoesBackTheSameWay) {
    Form().optFirst.enabled = false;
    Form().txtLine.SetFocus();
    const auto visit = [this](bool backward) {
        std::vector<std::string> visited;
        for (int n = 0; n < 4; ++n) {
            user->PressTab(backward);
            visited.emplace_back(Form().focus.ActiveControl()->name);
        }
        return visited;
    };
    using Names = std::vector<std::string>;
    EXPECT_EQ(visit(false), (Names{"txtBody", "optSecond", "tlbTools", "cmdOk"}));
    EXPECT_EQ(visit(true), (Names{"tlbTools", "optSecond", "txtBody", "txtLine"}));
    Form().optThird.value = true;
    EXPECT_EQ(visit(false), (Names{"txtBody", "optThird", "tlbTools", "cmdOk"}));
}

TEST_F(FormKeyboardTest, AnAccessKeyNeedsAltOnlyIfTheFocusedControlTakesLetters) {
    Form().txtLine.SetFocus();
    EXPECT_EQ(gestures::PressLetter(Form(), 'o'), KeyUse::ByControl);
    EXPECT_EQ(Form().presses, 0);
    Form().optSecond.SetFocus();
    EXPECT_EQ(gestures::PressLetter(Form(), 'o'), KeyUse::Used);
    EXPECT_EQ(Form().presses, 1);
}

TEST_F(FormKeyboardTest, TheAccessKeyIsBehindTheFirstSingleAmpersand) {
    EXPECT_EQ(gestures::AccessKeyOf("Tom && &jerry & &Co"), 'J');
    for (const char* caption : {"", "&", "Tom && Jerry", "&&&"}) {
        EXPECT_EQ(gestures::AccessKeyOf(caption), 0) << caption;
    }
}

TEST_F(FormKeyboardTest, AKeyOfNoCaptionIsLeftToTheSystem) {
    EXPECT_EQ(gestures::PressAccessKey(Form(), 'x'), KeyUse::Unused);
    EXPECT_EQ(gestures::PressAccessKey(Form(), 'O'), KeyUse::Used);
    EXPECT_EQ(Form().presses, 1);
    EXPECT_TRUE(Form().cmdOk.HasFocus());
}
