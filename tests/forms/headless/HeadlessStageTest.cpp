#include <gtest/gtest.h>

#include "forms/MsgBox.h"
#include "forms/Runtime.h"
#include "forms/headless/HeadlessStage.h"
#include "tests/forms/FormsUnderTest.h"
#include "tests/support/TestProgram.h"

using namespace forms;
using namespace forms_under_test;

namespace {

// If the stage did not report errors, all other tests would pass. So its reports are tested too.
class HeadlessStageTest : public testing_support::TestProgram {
  protected:
    void SetUp() override {
        TestProgram::SetUp();
        stage->onFailure = [this](const std::string& message) { failures.push_back(message); };
    }
    void ExpectFailure(const std::string& part) {
        ASSERT_FALSE(failures.empty()) << "should have failed with: " << part;
        EXPECT_NE(failures.front().find(part), std::string::npos) << failures.front();
        failures.erase(failures.begin());
    }
    void TearDown() override {
        for (const std::string& failure : failures) {
            ADD_FAILURE() << failure;
        }
        failures.clear();
        TestProgram::TearDown();
        for (const std::string& failure : failures) {
            ADD_FAILURE() << failure;
        }
    }
    static BoxResult Ask(bool secondIsDefault = false) {
        return MsgBox("Sure?", {BoxButtons::YesNo, BoxIcon::Question, secondIsDefault}, "Box");
    }

    std::vector<std::string> failures;
};

}  // namespace

TEST_F(HeadlessStageTest, AnUnexpectedBoxFailsAndIsAnsweredAsByEnter) {
    Start([] { EXPECT_EQ(Ask(), BoxResult::Yes); });
    ExpectFailure("Unexpected box \"Sure?\"");
    Start([] { EXPECT_EQ(Ask(true), BoxResult::No); });
    ExpectFailure("Unexpected box \"Sure?\"");
}

TEST_F(HeadlessStageTest, EachPropertyOfABoxCounts) {
    const auto ask = [this](const char* text, const char* caption, BoxIcon icon, BoxButtons buttons,
                            BoxResult answer, std::optional<BoxResult> defaultButton) {
        stage->ExpectBox(text, caption, icon, buttons, answer, defaultButton);
        Start([] { Ask(true); });
    };
    ask("Sure?", "Box", BoxIcon::Question, BoxButtons::YesNo, BoxResult::No, BoxResult::No);
    ask("Sure?", "Box", BoxIcon::Question, BoxButtons::YesNo, BoxResult::No, std::nullopt);
    EXPECT_TRUE(failures.empty());
    ask("Sure", "Box", BoxIcon::Question, BoxButtons::YesNo, BoxResult::No, std::nullopt);
    ExpectFailure("Expected box");
    ask("Sure?", "box", BoxIcon::Question, BoxButtons::YesNo, BoxResult::No, std::nullopt);
    ExpectFailure("Expected box");
    ask("Sure?", "Box", BoxIcon::None, BoxButtons::YesNo, BoxResult::No, std::nullopt);
    ExpectFailure("Expected box");
    ask("Sure?", "Box", BoxIcon::Question, BoxButtons::Ok, BoxResult::Ok, std::nullopt);
    ExpectFailure("Expected box");
    ask("Sure?", "Box", BoxIcon::Question, BoxButtons::YesNo, BoxResult::No, BoxResult::Yes);
    ExpectFailure("Expected box");
    ask("Sure?", "Box", BoxIcon::Question, BoxButtons::YesNo, BoxResult::Ok, std::nullopt);
    ExpectFailure("no such button");
}

TEST_F(HeadlessStageTest, AnExpectedWindowThatNeverOpensFails) {
    stage->ExpectBox("Sure?", "Box", BoxIcon::Question, BoxButtons::YesNo, BoxResult::No);
    stage->ExpectModal<frmFirst>([](frmFirst&) {});
    stage->Verify();
    ExpectFailure("Never came: box \"Sure?\"");
    ExpectFailure("Never came: modal form");
}

TEST_F(HeadlessStageTest, TheOrderCounts) {
    stage->ExpectModal<frmFirst>([](frmFirst& form) { form.Hide(); });
    Start([] { Ask(); });
    ExpectFailure("Unexpected box \"Sure?\"");
    Start([] { Default<frmSecond>().ShowModal(); });
    ExpectFailure("Unexpected modal frmSecond");
    Start([] { Default<frmFirst>().ShowModal(); });
}

TEST_F(HeadlessStageTest, AModalFormThatStaysOpenFailsAndIsClosed) {
    stage->ExpectModal<frmFirst>([](frmFirst& form) {
        form.onQueryUnload = [](bool& cancel, UnloadMode) { cancel = true; };
    });
    Start([] { Default<frmFirst>().ShowModal(); });
    ExpectFailure("still open");
    EXPECT_FALSE(Default<frmFirst>().IsVisible());
}

TEST_F(HeadlessStageTest, AnEndlessRowOfBoxesEndsTheProgram) {
    stage->onFailure = [](const std::string&) {};
    int boxes = 0;
    Start([&boxes] {
        while (Ask() == BoxResult::Yes) {
            ++boxes;
        }
    });
    EXPECT_GT(boxes, 9'000);
    EXPECT_TRUE(runtime->HasEnded());
    stage->onFailure = [](const std::string& message) { ADD_FAILURE() << message; };
}

TEST_F(HeadlessStageTest, PopupEntriesMustBeThereAndUsable) {
    struct frmMenu : Form {
        frmMenu() : Form("frmMenu") {}
        Menu mnuPop{this, "mnuPop"};
        Menu mnuOne{this, mnuPop, "mnuOne"};
        Menu mnuTwo{this, mnuPop, "mnuTwo"};
        Menu mnuSub{this, mnuPop, "mnuSub"};
        Menu mnuDeep{this, mnuSub, "mnuDeep"};
        int chosen = 0;
        void Design() override {
            mnuPop.inMenuBar = false;
            mnuOne.caption = "One";
            mnuTwo.caption = "Two";
            mnuDeep.caption = "Deep";
            mnuOne.Click = [this] { chosen = 1; };
            mnuTwo.Click = [this] { chosen = 2; };
            mnuDeep.Click = [this] { chosen = 3; };
        }
    };
    auto& form = Default<frmMenu>();
    Start([&form] { form.Show(); });
    const auto open = [&](const std::string& entry) {
        form.chosen = 0;
        stage->ExpectPopup("mnuPop", entry);
        Start([&form] { form.PopupMenu(form.mnuPop); });
        return form.chosen;
    };
    EXPECT_EQ(open("mnuOne"), 1);
    EXPECT_EQ(open("Two"), 2);
    EXPECT_EQ(open("mnuDeep"), 3);
    EXPECT_EQ(open(""), 0);
    EXPECT_EQ(stage->Popups().back().captions, (std::vector<std::string>{"One", "Two", ""}));
    EXPECT_TRUE(failures.empty());
    EXPECT_EQ(open("mnuThree"), 0);
    ExpectFailure("has no entry");
    EXPECT_EQ(open("mnuSub"), 0);
    ExpectFailure("sub-menu");
    form.mnuOne.enabled = false;
    EXPECT_EQ(open("mnuOne"), 0);
    ExpectFailure("disabled");
    form.mnuTwo.visible = false;
    EXPECT_EQ(open("mnuTwo"), 0);
    ExpectFailure("invisible");
    form.mnuSub.enabled = false;
    EXPECT_EQ(open("mnuDeep"), 0);
    ExpectFailure("disabled");
    Start([&form] { form.PopupMenu(form.mnuPop); });
    ExpectFailure("Unexpected pop-up menu mnuPop");
}

TEST_F(HeadlessStageTest, TheUserDoesNothingThatAPersonCouldNotDo) {
    auto& form = Default<frmFirst>();
    int clicks = 0;
    form.cmdGo.Click = [&clicks] { ++clicks; };
    user->Click(form.cmdGo);
    ExpectFailure("not loaded");
    Start([&form] { form.Load(); });
    user->Click(form.cmdGo);
    ExpectFailure("not shown");
    Start([&form] { form.Show(); });
    form.cmdGo.enabled = false;
    user->Click(form.cmdGo);
    ExpectFailure("disabled");
    form.cmdGo.enabled = true;
    form.cmdGo.visible = false;
    user->Click(form.cmdGo);
    ExpectFailure("hidden");
    form.cmdGo.visible = true;
    form.txtName.readOnly = true;
    user->Type(form.txtName, "x");
    ExpectFailure("read-only");
    user->Maximize(form);
    ExpectFailure("cannot be sized");
    user->Minimize(form);
    user->Click(form.cmdGo);
    ExpectFailure("minimised");
    user->Restore(form);
    ClickTrayIcon();
    ExpectFailure("there is none");
    user->PressEnter();  // presses the button, which has the focus
    EXPECT_EQ(clicks, 1);
    user->PressEscape();
    ExpectFailure("listens");
    stage->ExpectBox("Sure?", "Box", BoxIcon::Question, BoxButtons::YesNo, BoxResult::No, [&] {
        user->Click(form.cmdGo);
        ExpectFailure("a message box is open");
    });
    Start([] { Ask(); });
    stage->ExpectModal<frmSecond>([&](frmSecond& modal) {
        user->CloseBox(form);
        ExpectFailure("shuts its form off");
        user->CloseBox(modal);
    });
    Start([] { Default<frmSecond>().ShowModal(); });
    user->Click(form.cmdGo);
    EXPECT_EQ(clicks, 2);
}

TEST_F(HeadlessStageTest, ImprovisationAnswersUnexpectedWindows) {
    stage->improvise.box = [](const BoxRequest&) { return BoxResult::No; };
    stage->improvise.modal = [this](Form& form) { user->CloseBox(form); };
    Start([] {
        EXPECT_EQ(Ask(), BoxResult::No);
        Default<frmFirst>().ShowModal();
    });
    EXPECT_EQ(stage->Boxes().size(), 1U);
}

TEST_F(HeadlessStageTest, MeasuresAndInnerSizesAreFixed) {
    frmFirst& form = Default<frmFirst>();
    EXPECT_EQ(stage->MeasureText(form, "Hello", 8).width, 450);
    EXPECT_EQ(stage->MeasureText(form, "Hello\r\nyou", 16).width, 900);
    EXPECT_EQ(stage->MeasureText(form, "Hello\r\nyou", 16).height, 960);
    EXPECT_EQ(stage->MeasureText(form, "", 0).height, 240);
    form.borderStyle = BorderStyle::None;
    EXPECT_EQ(form.ScaleWidth(), form.width());
}
