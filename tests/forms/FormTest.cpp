#include <gtest/gtest.h>

#include "forms/Form.h"
#include "forms/Gestures.h"
#include "forms/Runtime.h"
#include "tests/forms/FormsUnderTest.h"
#include "tests/support/TestProgram.h"

using namespace forms;
using namespace forms_under_test;
using Lines = std::vector<std::string>;

namespace {

class FormTest : public testing_support::TestProgram {
  protected:
    void SetUp() override {
        TestProgram::SetUp();
        Log().clear();
    }
};

}  // namespace

TEST_F(FormTest, IsDesignedAndInitialisedWhenFirstMentionedAndLoadedLater) {
    Start([] { Default<frmFirst>(); });
    EXPECT_EQ(TakeLog(), (Lines{"frmFirst.Design", "frmFirst.Initialize"}));
    EXPECT_FALSE(Default<frmFirst>().IsLoaded());
    Start([] { Default<frmFirst>().Load(); });
    EXPECT_EQ(TakeLog(), Lines{"frmFirst.Load"});
    EXPECT_TRUE(Default<frmFirst>().IsLoaded());
    EXPECT_FALSE(Default<frmFirst>().IsVisible());
    Start([] { Default<frmFirst>().Load(); });
    EXPECT_EQ(TakeLog(), Lines{});
}

TEST_F(FormTest, ShowLoadsAndActivates) {
    Start([] {
        Default<frmFirst>().Show();
        EXPECT_EQ(TakeLog(), (Lines{"frmFirst.Design", "frmFirst.Initialize", "frmFirst.Load",
                                    "frmFirst.Activate"}));
        EXPECT_FALSE(Default<frmFirst>().IsShownOnStage());
    });
    EXPECT_TRUE(Default<frmFirst>().IsShownOnStage());
    Start([] { Default<frmFirst>().Show(); });
    EXPECT_EQ(TakeLog(), Lines{});
}

TEST_F(FormTest, IsShownOnceInTheStateThatItHasWhenTheHandlerReturns) {
    Start([] {
        Default<frmFirst>().Show();
        Default<frmFirst>().Hide();
        Default<frmFirst>().Show();
        Default<frmFirst>().windowState = WindowState::Minimized;
    });
    const auto& window = stage->WindowOf(Default<frmFirst>());
    EXPECT_EQ(window.timesShown, 1);
    EXPECT_EQ(window.state, WindowState::Minimized);
}

TEST_F(FormTest, AFormShownAndHiddenInOneHandlerNeverAppears) {
    Start([] {
        Default<frmFirst>().Show();
        Default<frmFirst>().Hide();
    });
    EXPECT_EQ(stage->WindowOf(Default<frmFirst>()).timesShown, 0);
}

TEST_F(FormTest, IsShownBeforeABoxOpens) {
    ExpectMessage("Hello", "Caption", BoxIcon::None,
                  [this] { EXPECT_TRUE(stage->WindowOf(Default<frmFirst>()).shown); });
    Start([] {
        Default<frmFirst>().Show();
        MsgBox("Hello", {}, "Caption");
    });
}

TEST_F(FormTest, UnloadAsksTwiceAndForgetsTheForm) {
    Start([] { Default<frmFirst>().Show(); });
    const std::weak_ptr<Form> first = Default<frmFirst>().weak_from_this();
    TakeLog();
    Start([] { EXPECT_TRUE(Default<frmFirst>().Unload()); });
    EXPECT_EQ(TakeLog(), (Lines{"frmFirst.QueryUnload", "frmFirst.Unload"}));
    EXPECT_TRUE(first.expired());
    EXPECT_TRUE(runtime->LoadedForms().empty());
    EXPECT_EQ(LoadedDefault<frmFirst>(), nullptr);
}

TEST_F(FormTest, QueryUnloadMayRefuse) {
    Start([] {
        Default<frmFirst>().Show();
        Default<frmFirst>().onQueryUnload = [](bool& cancel, UnloadMode) { cancel = true; };
    });
    TakeLog();
    Start([] { EXPECT_FALSE(Default<frmFirst>().Unload()); });
    EXPECT_EQ(TakeLog(), Lines{"frmFirst.QueryUnload"});
    EXPECT_TRUE(Default<frmFirst>().IsVisible());
}

TEST_F(FormTest, UnloadMayRefuse) {
    Start([] {
        Default<frmFirst>().Show();
        Default<frmFirst>().onUnload = [](bool& cancel) { cancel = true; };
    });
    TakeLog();
    user->CloseBox(Default<frmFirst>());
    EXPECT_EQ(TakeLog(), (Lines{"frmFirst.QueryUnload", "frmFirst.Unload"}));
    EXPECT_TRUE(Default<frmFirst>().IsLoaded());
    EXPECT_TRUE(Default<frmFirst>().IsVisible());
}

TEST_F(FormTest, UnloadingWhileBeingAskedLeavesTheAnswerToTheFirstCall) {
    bool refuse = true;
    Start([&refuse] {
        Default<frmFirst>().Show();
        Default<frmFirst>().onQueryUnload = [&refuse](bool& cancel, UnloadMode) {
            cancel = refuse;
            EXPECT_FALSE(Default<frmFirst>().Unload());
        };
    });
    TakeLog();
    user->CloseBox(Default<frmFirst>());
    EXPECT_EQ(TakeLog(), Lines{"frmFirst.QueryUnload"});
    EXPECT_TRUE(Default<frmFirst>().IsLoaded());
    refuse = false;
    user->CloseBox(Default<frmFirst>());
    EXPECT_EQ(TakeLog(), (Lines{"frmFirst.QueryUnload", "frmFirst.Unload"}));
    EXPECT_EQ(LoadedDefault<frmFirst>(), nullptr);
}

TEST_F(FormTest, UnloadingWhileTheSecondQuestionIsOpenLeavesItToTheFirstCall) {
    Start([] {
        Default<frmFirst>().Show();
        Default<frmFirst>().onUnload = [](bool& cancel) {
            cancel = true;
            EXPECT_FALSE(Default<frmFirst>().Unload());
        };
    });
    TakeLog();
    user->CloseBox(Default<frmFirst>());
    EXPECT_EQ(TakeLog(), (Lines{"frmFirst.QueryUnload", "frmFirst.Unload"}));
    EXPECT_TRUE(Default<frmFirst>().IsLoaded());
}

TEST_F(FormTest, TheReasonOfUnloadingIsTold) {
    Start([] {
        Default<frmFirst>().Show();
        Default<frmFirst>().onUnload = [](bool& cancel) { cancel = true; };
    });
    Start([] { Default<frmFirst>().Unload(); });
    EXPECT_EQ(Default<frmFirst>().lastMode, UnloadMode::Code);
    user->CloseBox(Default<frmFirst>());
    EXPECT_EQ(Default<frmFirst>().lastMode, UnloadMode::CloseBox);
    gestures::EndSession();
    EXPECT_EQ(Default<frmFirst>().lastMode, UnloadMode::SessionEnd);
}

TEST_F(FormTest, TheSessionEndsInTheOrderOfLoading) {
    Start([] {
        Default<frmSecond>().Load();
        Default<frmFirst>().Show();
        Default<frmThird>().Show();
    });
    TakeLog();
    gestures::EndSession();
    EXPECT_EQ(TakeLog(), (Lines{"frmSecond.QueryUnload", "frmSecond.Unload", "frmFirst.QueryUnload",
                                "frmFirst.Unload", "frmThird.QueryUnload", "frmThird.Unload"}));
}

TEST_F(FormTest, AHandlerMayUnloadItsOwnForm) {
    Start([] {
        auto& form = Default<frmFirst>();
        form.cmdGo.Click = [&form] {
            form.Unload();
            EXPECT_EQ(std::string(form.cmdGo.name), "cmdGo");  // the form still exists
        };
        form.Show();
    });
    const std::weak_ptr<Form> first = Default<frmFirst>().weak_from_this();
    user->Click(Default<frmFirst>().cmdGo);
    EXPECT_TRUE(first.expired());
}

TEST_F(FormTest, ATimerMayUnloadItsOwnForm) {
    Start([] {
        auto& form = Default<frmFirst>();
        form.Load();
        form.tmrOne.interval = 100;
        form.tmrOne.Tick = [&form] { form.Unload(); };
        form.tmrTwo.interval = 100;
        form.tmrTwo.Tick = [&form] { form.Unload(); };
        form.tmrOne.enabled = true;
        form.tmrTwo.enabled = true;
    });
    TakeLog();
    Advance(1000);
    EXPECT_EQ(TakeLog(), (Lines{"frmFirst.QueryUnload", "frmFirst.Unload"}));
}

TEST_F(FormTest, AFormMayBeLoadedAgainWhileItIsUnloaded) {
    Start([] {
        Default<frmFirst>().Show();
        Default<frmFirst>().cmdGo.Click = [] {
            Default<frmFirst>().Unload();
            Default<frmFirst>().Load();
        };
    });
    const Form* const before = &Default<frmFirst>();
    TakeLog();
    user->Click(Default<frmFirst>().cmdGo);
    EXPECT_EQ(TakeLog(), (Lines{"frmFirst.QueryUnload", "frmFirst.Unload", "frmFirst.Design",
                                "frmFirst.Initialize", "frmFirst.Load"}));
    EXPECT_NE(&Default<frmFirst>(), before);
    EXPECT_FALSE(Default<frmFirst>().IsVisible());
}

TEST_F(FormTest, AFormThatFailsToLoadIsNotThere) {
    Start([] {
        auto form = New<frmFirst>();
        form->onLoad = [] { throw base::RuntimeError(base::ErrorNumber::FileNotFound); };
        EXPECT_THROW(form->Load(), base::RuntimeError);
        EXPECT_FALSE(form->IsLoaded());
    });
    EXPECT_TRUE(runtime->LoadedForms().empty());
}

TEST_F(FormTest, AFormMayUnloadItselfWhileItLoads) {
    Start([] {
        for (const auto show : {&Form::Show, &Form::ShowModal, &Form::MakeTopMost}) {
            const auto form = New<frmFirst>();
            form->onLoad = [&form] { form->Unload(); };
            ((*form).*show)();
            EXPECT_FALSE(form->IsVisible());
        }
    });
    EXPECT_TRUE(runtime->LoadedForms().empty());
}

TEST_F(FormTest, AFormThatIsNotLoadedOnlyStoresTheFocusAndIsNotBroughtForward) {
    Start([this] {
        const auto form = New<frmFirst>();
        form->txtName.SetFocus();
        form->BringToForeground();
        EXPECT_FALSE(form->IsLoaded());
        EXPECT_EQ(runtime->ActiveForm(), nullptr);
        form->Show();
        EXPECT_EQ(form->focus.ActiveControl(), &form->txtName);
    });
}

TEST_F(FormTest, ResizeComesBeforeTheFirstShowingAndWithEachSize) {
    Start([] { Default<frmFirst>().Load(); });
    EXPECT_EQ(Default<frmFirst>().timesResized, 0);
    Start([] { Default<frmFirst>().Show(); });
    EXPECT_EQ(Default<frmFirst>().timesResized, 1);
    Start([] { Default<frmFirst>().height = 6000; });
    EXPECT_EQ(Default<frmFirst>().timesResized, 2);
    EXPECT_EQ(Default<frmFirst>().ScaleHeight(), 6000 - 2 * 45 - 285);
}

TEST_F(FormTest, MakeTopMostShowsWithoutActivating) {
    Start([] { Default<frmFirst>().Show(); });
    Start([] { Default<frmSecond>().MakeTopMost(); });
    EXPECT_TRUE(Default<frmSecond>().IsTopMost());
    EXPECT_TRUE(Default<frmSecond>().IsShownOnStage());
    EXPECT_EQ(runtime->ActiveForm(), &Default<frmFirst>());
}

TEST_F(FormTest, TheMostRecentlyUsedVisibleFormBecomesActive) {
    Start([] {
        Default<frmFirst>().Show();
        Default<frmSecond>().Show();
        Default<frmThird>().Show();
        Default<frmFirst>().Show();
    });
    EXPECT_EQ(runtime->ActiveForm(), &Default<frmFirst>());
    Start([] { Default<frmFirst>().Hide(); });
    EXPECT_EQ(runtime->ActiveForm(), &Default<frmThird>());
    Start([] { Default<frmThird>().Unload(); });
    EXPECT_EQ(runtime->ActiveForm(), &Default<frmSecond>());
    Start([] { Default<frmSecond>().windowState = WindowState::Minimized; });
    EXPECT_NE(runtime->ActiveForm(), &Default<frmSecond>());
}
