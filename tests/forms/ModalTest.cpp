#include <gtest/gtest.h>

#include "forms/Form.h"
#include "forms/Gestures.h"
#include "forms/MsgBox.h"
#include "forms/Runtime.h"
#include "tests/forms/FormsUnderTest.h"
#include "tests/support/TestProgram.h"

using namespace forms;
using namespace forms_under_test;

namespace {

class ModalTest : public testing_support::TestProgram {};

}  // namespace

TEST_F(ModalTest, ReturnsWhenTheFormIsHidden) {
    stage->ExpectModal<frmSecond>([this](frmSecond& form) {
        EXPECT_TRUE(form.IsModal());
        user->Click(form.cmdGo);
        EXPECT_FALSE(form.IsModal());
    });
    bool returned = false;
    Start([&] {
        auto& form = Default<frmSecond>();
        form.cmdGo.Click = [&form] { form.Hide(); };
        form.ShowModal();
        EXPECT_TRUE(form.IsLoaded());
        returned = true;
    });
    EXPECT_TRUE(returned);
}

TEST_F(ModalTest, ReturnsWhenTheFormIsUnloaded) {
    stage->ExpectModal<frmSecond>([this](frmSecond& form) { user->CloseBox(form); });
    Start([] { Default<frmSecond>().ShowModal(); });
    EXPECT_EQ(LoadedDefault<frmSecond>(), nullptr);
}

TEST_F(ModalTest, AFormThatIsHiddenMeanwhileCanBeUsedWhenItIsBack) {
    Start([] { Default<frmFirst>().Show(); });
    stage->ExpectModal<frmSecond>([this](frmSecond& form) {
        Default<frmFirst>().Hide();
        user->CloseBox(form);
    });
    Start([] { Default<frmSecond>().ShowModal(); });
    Start([] { Default<frmFirst>().Show(); });
    int clicks = 0;
    Default<frmFirst>().cmdGo.Click = [&clicks] { ++clicks; };
    user->Click(Default<frmFirst>().cmdGo);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ModalTest, DisablesVisibleFormsAndNotThoseShownLater) {
    Start([] { Default<frmFirst>().Show(); });
    stage->ExpectModal<frmSecond>([this](frmSecond& form) {
        EXPECT_FALSE(Default<frmFirst>().IsUsable());
        EXPECT_FALSE(stage->WindowOf(Default<frmFirst>()).usable);
        EXPECT_TRUE(form.IsUsable());
        form.cmdGo.Click = [] { Default<frmThird>().Show(); };
        user->Click(form.cmdGo);
        EXPECT_TRUE(Default<frmThird>().IsUsable());
        int clicks = 0;
        Default<frmThird>().cmdGo.Click = [&clicks] { ++clicks; };
        user->Click(Default<frmThird>().cmdGo);
        EXPECT_EQ(clicks, 1);
        user->CloseBox(form);
        EXPECT_TRUE(Default<frmFirst>().IsUsable());
        EXPECT_TRUE(stage->WindowOf(Default<frmFirst>()).usable);
    });
    Start([] { Default<frmSecond>().ShowModal(); });
}

TEST_F(ModalTest, GesturesOnADisabledFormDoNothing) {
    int clicks = 0;
    Start([&clicks] {
        Default<frmFirst>().cmdGo.Click = [&clicks] { ++clicks; };
        Default<frmFirst>().Show();
    });
    stage->ExpectModal<frmSecond>([this](frmSecond& form) {
        gestures::Click(Default<frmFirst>().cmdGo);
        user->CloseBox(form);
    });
    Start([] { Default<frmSecond>().ShowModal(); });
    EXPECT_EQ(clicks, 0);
    user->Click(Default<frmFirst>().cmdGo);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ModalTest, NestsModalInBoxInModal) {
    Start([] {
        Default<frmFirst>().tmrOne.interval = 1000;
        Default<frmFirst>().tmrOne.Tick = [] {
            Default<frmFirst>().tmrOne.enabled = false;
            Default<frmThird>().ShowModal();
        };
        Default<frmFirst>().Show();
        Default<frmSecond>().cmdGo.Click = [] {
            Default<frmFirst>().tmrOne.enabled = true;
            EXPECT_EQ(MsgBox("Sure?", {BoxButtons::YesNo}, "Question"), BoxResult::No);
            Default<frmSecond>().Unload();
        };
    });
    stage->ExpectModal<frmSecond>([this](frmSecond& form) {
        user->Click(form.cmdGo);
        EXPECT_EQ(LoadedDefault<frmSecond>(), nullptr);
    });
    ExpectQuestion("Sure?", "Question", BoxIcon::None, BoxResult::No, [this] { Advance(1000); });
    stage->ExpectModal<frmThird>([this](frmThird& form) {
        EXPECT_EQ(stage->OpenWaits(), 3U);
        EXPECT_FALSE(Default<frmSecond>().IsUsable());
        user->CloseBox(form);
        EXPECT_TRUE(Default<frmSecond>().IsUsable());
        EXPECT_FALSE(Default<frmFirst>().IsUsable());
    });
    Start([] { Default<frmSecond>().ShowModal(); });
    EXPECT_TRUE(Default<frmFirst>().IsUsable());
}

TEST_F(ModalTest, AnOuterFormClosedFirstLeavesItsHandlerWaitingForTheInner) {
    std::vector<std::string> order;
    Start([&order] {
        Default<frmSecond>().cmdGo.Click = [&order] {
            Default<frmThird>().ShowModal();
            order.push_back("third returned");
        };
    });
    stage->ExpectModal<frmSecond>([this](frmSecond& form) { user->Click(form.cmdGo); });
    stage->ExpectModal<frmThird>([this](frmThird& form) {
        form.cmdGo.Click = [] { Default<frmSecond>().Unload(); };
        user->Click(form.cmdGo);
        EXPECT_EQ(LoadedDefault<frmSecond>(), nullptr);
        EXPECT_TRUE(form.IsVisible());
        user->CloseBox(form);
    });
    Start([&order] {
        Default<frmSecond>().ShowModal();
        order.push_back("second returned");
    });
    EXPECT_EQ(order, (std::vector<std::string>{"third returned", "second returned"}));
}

TEST_F(ModalTest, AFormThatIsModalAlreadyIsOnlyBroughtForward) {
    stage->ExpectModal<frmSecond>([this](frmSecond& form) {
        form.cmdGo.Click = [&form] { form.ShowModal(); };
        user->Click(form.cmdGo);
        EXPECT_EQ(stage->Foreground(), &form);
        user->CloseBox(form);
    });
    Start([] { Default<frmSecond>().ShowModal(); });
}

TEST_F(ModalTest, TimersGoOn) {
    int ticks = 0;
    Start([&ticks] {
        Default<frmFirst>().Show();
        Default<frmFirst>().tmrOne.Tick = [&ticks] { ++ticks; };
        Default<frmFirst>().tmrOne.interval = 250;
        Default<frmFirst>().tmrOne.enabled = true;
    });
    stage->ExpectModal<frmSecond>([this](frmSecond& form) {
        Advance(1000);
        user->CloseBox(form);
    });
    Start([] { Default<frmSecond>().ShowModal(); });
    EXPECT_EQ(ticks, 4);
}

TEST_F(ModalTest, TheProgramMayEndInside) {
    bool reached = false;
    stage->ExpectModal<frmSecond>([this](frmSecond& form) {
        form.cmdGo.Click = [] { Runtime::Current().End(); };
        user->Click(form.cmdGo);
    });
    Start([&reached] {
        Default<frmSecond>().ShowModal();
        reached = true;
    });
    EXPECT_FALSE(reached);
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_TRUE(stage->HasQuit());
}
