#include "tests/conformance/Stand.h"

using namespace forms;
using namespace forms_under_test;
using conformance::Lines;

namespace {

class ModalityTest : public conformance::StandTest {
  protected:
    static BoxResult Ask(const std::string& text) {
        return MsgBox(text, {BoxButtons::YesNo}, "Question");
    }
    static void Tell(const std::string& text) { MsgBox(text, {}, "Message"); }
};

}  // namespace

TEST_F(ModalityTest, ABoxReturnsTheAnswer) {
    ExpectQuestion("Yes?", "Question", BoxResult::Yes);
    ExpectQuestion("No?", "Question", BoxResult::No);
    ExpectMessage("Two\r\nlines", "Message");
    Start([] {
        EXPECT_EQ(Ask("Yes?"), BoxResult::Yes);
        EXPECT_EQ(Ask("No?"), BoxResult::No);
        EXPECT_EQ(MsgBox("Two\r\nlines", {}, "Message"), BoxResult::Ok);
    });
}

TEST_F(ModalityTest, AFormShownInTheHandlerIsThereWhenItsBoxOpens) {
    ExpectMessage("Look", "Message", [this] { EXPECT_TRUE(stand->IsShown(Default<frmFirst>())); });
    Start([] {
        Default<frmFirst>().Show();
        Tell("Look");
    });
}

TEST_F(ModalityTest, AModalFormDisablesVisibleFormsButNotLaterOnes) {
    Start([] { Default<frmFirst>().Show(); });
    stand->ExpectModal<frmSecond>([this](frmSecond& form) {
        EXPECT_FALSE(stand->CanBeUsed(Default<frmFirst>()));
        EXPECT_TRUE(stand->CanBeUsed(form));
        form.cmdGo.Click = [] { Default<frmThird>().Show(); };
        stand->Click(form.cmdGo);
        EXPECT_TRUE(stand->CanBeUsed(Default<frmThird>()));
        stand->CloseBox(form);
    });
    Start([this] {
        Default<frmSecond>().ShowModal();
        EXPECT_TRUE(stand->CanBeUsed(Default<frmFirst>()));
    });
    EXPECT_TRUE(stand->CanBeUsed(Default<frmThird>()));
}

TEST_F(ModalityTest, AModalFormReturnsWhenItIsHidden) {
    bool returned = false;
    stand->ExpectModal<frmSecond>([this](frmSecond& form) {
        form.cmdGo.Click = [&form] { form.Hide(); };
        stand->Click(form.cmdGo);
    });
    Start([&returned] {
        Default<frmSecond>().ShowModal();
        returned = Default<frmSecond>().IsLoaded();
    });
    EXPECT_TRUE(returned);
}

TEST_F(ModalityTest, AModalFormMayBeShownAgain) {
    int times = 0;
    for (int round = 0; round < 2; ++round) {
        stand->ExpectModal<frmSecond>([this, &times](frmSecond& form) {
            ++times;
            form.cmdGo.Click = [&form] { form.Hide(); };
            stand->Click(form.cmdGo);
        });
    }
    Start([] {
        Default<frmSecond>().ShowModal();
        Default<frmSecond>().ShowModal();
    });
    EXPECT_EQ(times, 2);
}

TEST_F(ModalityTest, BoxesNestInModalFormsAndModalFormsInBoxes) {
    Lines order;
    Start([&order] {
        auto& first = Default<frmFirst>();
        first.tmrOne.interval = 40;
        first.tmrOne.Tick = [&order] {
            Default<frmFirst>().tmrOne.enabled = false;
            Default<frmThird>().ShowModal();
            order.emplace_back("third closed");
        };
        first.Show();
        Default<frmSecond>().cmdGo.Click = [&order] {
            Default<frmFirst>().tmrOne.enabled = true;
            EXPECT_EQ(Ask("Sure?"), BoxResult::No);
            order.emplace_back("answered");
            Default<frmSecond>().Unload();
        };
    });
    stand->ExpectModal<frmSecond>([this](frmSecond& form) { stand->Click(form.cmdGo); });
    bool nested = false;
    ExpectQuestion("Sure?", "Question", BoxResult::No,
                   [this, &nested] { PumpUntil([&nested] { return nested; }); });
    stand->ExpectModal<frmThird>([this, &nested](frmThird& form) {
        EXPECT_FALSE(stand->CanBeUsed(Default<frmSecond>()));
        EXPECT_TRUE(stand->CanBeUsed(form));
        stand->CloseBox(form);
        nested = true;
    });
    Start([&order] {
        Default<frmSecond>().ShowModal();
        order.emplace_back("second closed");
    });
    EXPECT_EQ(order, (Lines{"third closed", "answered", "second closed"}));
    EXPECT_TRUE(stand->CanBeUsed(Default<frmFirst>()));
}

TEST_F(ModalityTest, AFormMayBeUnloadedWhileItsOwnBoxIsOpen) {
    Start([] {
        Default<frmSecond>().tmrOne.interval = 40;
        Default<frmSecond>().tmrOne.Tick = [] {
            Default<frmSecond>().tmrOne.enabled = false;
            Default<frmFirst>().Unload();
        };
        Default<frmSecond>().Load();
        Default<frmFirst>().cmdGo.Click = [] {
            Default<frmSecond>().tmrOne.enabled = true;
            Tell("Wait");
        };
        Default<frmFirst>().Show();
    });
    ExpectMessage("Wait", "Message",
                  [this] { PumpUntil([] { return LoadedDefault<frmFirst>() == nullptr; }); });
    stand->Click(Default<frmFirst>().cmdGo);
    EXPECT_EQ(LoadedDefault<frmFirst>(), nullptr);
}

TEST_F(ModalityTest, AnOuterModalFormMayCloseBeforeTheInner) {
    Lines order;
    Start([&order] {
        Default<frmSecond>().cmdGo.Click = [&order] {
            Default<frmThird>().ShowModal();
            order.emplace_back("third");
        };
    });
    stand->ExpectModal<frmSecond>([this](frmSecond& form) { stand->Click(form.cmdGo); });
    stand->ExpectModal<frmThird>([this](frmThird& form) {
        form.cmdGo.Click = [] { Default<frmSecond>().Unload(); };
        stand->Click(form.cmdGo);
        EXPECT_TRUE(stand->IsShown(form));
        EXPECT_TRUE(stand->CanBeUsed(form));
        stand->CloseBox(form);
    });
    Start([&order] {
        Default<frmSecond>().ShowModal();
        order.emplace_back("second");
    });
    EXPECT_EQ(order, (Lines{"third", "second"}));
}

TEST_F(ModalityTest, TheProgramMayEndUnderABoxInAModalForm) {
    Lines reached;
    Start([] {
        Default<frmFirst>().tmrOne.interval = 40;
        Default<frmFirst>().tmrOne.Tick = [] { Runtime::Current().End(); };
        Default<frmFirst>().Load();
    });
    stand->ExpectModal<frmSecond>([this, &reached](frmSecond& form) {
        form.cmdGo.Click = [&reached] {
            Tell("Wait");
            reached.emplace_back("box");
        };
        stand->Click(form.cmdGo);
    });
    ExpectMessage("Wait", "Message", [this] {
        Default<frmFirst>().tmrOne.enabled = true;
        PumpUntil([this] { return runtime->HasEnded(); });
    });
    Start([&reached] {
        Default<frmSecond>().ShowModal();
        reached.emplace_back("modal");
    });
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_EQ(reached, Lines{});
}
