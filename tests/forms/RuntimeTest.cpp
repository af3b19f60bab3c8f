#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

#include "forms/Gestures.h"
#include "forms/MsgBox.h"
#include "forms/Runtime.h"
#include "tests/forms/FormsUnderTest.h"
#include "tests/support/TestProgram.h"

using namespace forms;
using namespace forms_under_test;

namespace {

class RuntimeTest : public testing_support::TestProgram {};

}  // namespace

TEST_F(RuntimeTest, AClassHasOneDefaultInstance) {
    frmFirst& first = Default<frmFirst>();
    EXPECT_EQ(&Default<frmFirst>(), &first);
    EXPECT_EQ(LoadedDefault<frmFirst>(), nullptr);
    Start([&first] { first.Load(); });
    EXPECT_EQ(LoadedDefault<frmFirst>(), &first);
}

TEST_F(RuntimeTest, FurtherInstancesAreNotTheDefault) {
    Start([] {
        auto further = New<frmFirst>();
        further->Load();
        EXPECT_NE(&Default<frmFirst>(), further.get());
    });
    EXPECT_EQ(LoadedDefault<frmFirst>(), nullptr);
    EXPECT_EQ(runtime->LoadedForms().size(), 1U);
}

TEST_F(RuntimeTest, ALoadedFurtherInstanceIsKeptByTheRuntimeAlone) {
    std::weak_ptr<Form> further;
    Start([&further] {
        auto form = New<frmFirst>();
        further = form;
        form->Load();
    });
    ASSERT_FALSE(further.expired());
    Start([&further] { further.lock()->Unload(); });
    EXPECT_TRUE(further.expired());
}

TEST_F(RuntimeTest, LoadedFormsAreListedInTheOrderOfLoading) {
    Start([] {
        Default<frmSecond>().Load();
        Default<frmThird>().Load();
        Default<frmFirst>().Load();
        Default<frmThird>().Unload();
        Default<frmThird>().Load();
    });
    std::vector<std::string> names;
    for (const auto& form : runtime->LoadedForms()) {
        names.emplace_back(form->name);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"frmSecond", "frmFirst", "frmThird"}));
}

TEST_F(RuntimeTest, LaterWorkRunsInItsOrderAfterTheHandler) {
    std::vector<int> ran;
    Start([&ran] {
        for (int number = 1; number <= 3; ++number) {
            Application::Current().RunLater([&ran, number] { ran.push_back(number); });
        }
        EXPECT_TRUE(ran.empty());
    });
    EXPECT_TRUE(ran.empty());
    Advance(100);
    EXPECT_EQ(ran, (std::vector<int>{1, 2, 3}));
}

TEST_F(RuntimeTest, LaterWorkMayShowWindowsAndAddWork) {
    std::vector<std::shared_ptr<frmFirst>> shown;
    std::function<void()> show = [&] {
        shown.push_back(New<frmFirst>());
        shown.back()->Show();
        if (shown.size() < 20) {
            Application::Current().RunLater(show);
        }
    };
    Start([&show] {
        Default<frmSecond>().Show();
        Application::Current().RunLater(show);
    });
    EXPECT_TRUE(Default<frmSecond>().IsShownOnStage());
    Advance(100);
    ASSERT_EQ(shown.size(), 20U);
    EXPECT_TRUE(shown.front()->IsShownOnStage());
    EXPECT_TRUE(shown.back()->IsShownOnStage());
}

TEST_F(RuntimeTest, TheEndOfTheProgramDropsLaterWork) {
    int ran = 0;
    Start([&ran] {
        Default<frmSecond>().Show();
        Application::Current().RunLater([&ran] {
            ++ran;
            Application::Current().End();
        });
        Application::Current().RunLater([&ran] { ++ran; });
    });
    Advance(1000);
    EXPECT_EQ(ran, 1);
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(RuntimeTest, IfManyWindowsAreOpenedAllButTheFirstAppearAfterTheHandler) {
    std::vector<std::shared_ptr<frmFirst>> windows;
    const auto shown = [&windows] {
        return std::count_if(windows.begin(), windows.end(),
                             [](const auto& form) { return form->IsShownOnStage(); });
    };
    const auto open = [&windows](int count) {
        for (int number = 0; number < count; ++number) {
            windows.push_back(New<frmFirst>());
            windows.back()->Show();
        }
    };
    Start([&open] { open(10); });
    EXPECT_EQ(shown(), 10);
    Start([&open] { open(11); });
    EXPECT_EQ(shown(), 11);
    EXPECT_TRUE(windows[10]->IsShownOnStage());
    // A waiting window that is hidden does not appear.
    Start([&windows] { windows[15]->Hide(); });
    Advance(99);
    EXPECT_EQ(shown(), 11);
    Advance(1);
    EXPECT_EQ(shown(), 20);
    EXPECT_FALSE(windows[15]->IsShownOnStage());
    EXPECT_EQ(runtime->ActiveForm(), windows.back().get());
}

TEST_F(RuntimeTest, AnUntrappedErrorIsReportedAndEndsTheProgram) {
    bool saved = false;
    runtime->onFatalError = [&saved] { saved = true; };
    Start([] { Default<frmFirst>().Show(); });
    Default<frmFirst>().cmdGo.Click = [] { throw base::RuntimeError(base::ErrorNumber::Overflow); };
    ExpectRunTimeError(6, "Overflow");
    user->Click(Default<frmFirst>().cmdGo);
    EXPECT_TRUE(saved);
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_TRUE(stage->HasQuit());
}

TEST_F(RuntimeTest, NothingIsSavedBeforeTheReportIsReadAndNothingRunsMeanwhile) {
    std::vector<std::string> order;
    runtime->onFatalError = [&order] { order.emplace_back("saved"); };
    Start([&order] {
        auto& form = Default<frmFirst>();
        form.tmrOne.interval = 100;
        form.tmrOne.Tick = [&order] { order.emplace_back("tick"); };
        form.tmrOne.enabled = true;
        form.Show();
    });
    ExpectRunTimeError(9, "Subscript out of range", [&] {
        Advance(1000);
        order.emplace_back("read");
    });
    Start([] { throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange); });
    EXPECT_EQ(order, (std::vector<std::string>{"read", "saved"}));
}

TEST_F(RuntimeTest, AFailureWhileEndingIsNotReportedAgain) {
    runtime->onFatalError = [] { throw base::RuntimeError(base::ErrorNumber::DiskFull); };
    ExpectRunTimeError(13, "Type mismatch");
    Start([] { throw base::RuntimeError(base::ErrorNumber::TypeMismatch); });
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(RuntimeTest, MemoryThatRunsOutWhileEndingStillEndsInOrder) {
    runtime->onFatalError = [] { throw std::bad_alloc(); };
    ExpectRunTimeError(7, "Out of memory");
    Start([] { throw std::bad_alloc(); });
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(RuntimeTest, AnErrorUnderABoxLeavesTheHandlerThatShowedIt) {
    bool wentOn = false;
    Start([] {
        auto& form = Default<frmFirst>();
        form.tmrOne.interval = 100;
        form.tmrOne.Tick = [] { throw base::RuntimeError(base::ErrorNumber::FileNotFound); };
        form.tmrOne.enabled = true;
        form.Load();
    });
    ExpectMessage("Hello", "Box", BoxIcon::None, [this] { Advance(100); });
    ExpectRunTimeError(53, "File not found");
    Start([&wentOn] {
        MsgBox("Hello", {}, "Box");
        wentOn = true;
    });
    EXPECT_FALSE(wentOn);
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(RuntimeTest, MemoryRunningOutIsReported) {
    ExpectRunTimeError(7, "Out of memory");
    Start([] { throw std::bad_alloc(); });
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(RuntimeTest, AnErrorThatAHandlerTrapsDoesNotEndTheProgram) {
    Start([] {
        try {
            throw base::RuntimeError(base::ErrorNumber::DiskFull);
        } catch (const base::RuntimeError& error) {
            EXPECT_EQ(error.number(), 61);
        }
    });
    EXPECT_FALSE(runtime->HasEnded());
}

TEST_F(RuntimeTest, EndLeavesEveryHandlerOnTheStack) {
    std::vector<std::string> reached;
    Start([] { Default<frmFirst>().Show(); });
    stage->ExpectModal<frmSecond>([&](frmSecond& form) {
        form.cmdGo.Click = [&] {
            MsgBox("Inner", {}, "Box");
            reached.emplace_back("inner");
        };
        user->Click(form.cmdGo);
    });
    ExpectMessage("Inner", "Box", BoxIcon::None,
                  [] { Runtime::Current().Dispatch(nullptr, [] { Runtime::Current().End(); }); });
    Start([&reached] {
        Default<frmSecond>().ShowModal();
        reached.emplace_back("outer");
    });
    EXPECT_TRUE(runtime->HasEnded());
    EXPECT_TRUE(reached.empty());
}

TEST_F(RuntimeTest, NothingHappensOnceTheProgramHasEnded) {
    int events = 0;
    Start([&events] {
        auto& form = Default<frmFirst>();
        form.cmdGo.Click = [&events] { ++events; };
        form.tmrOne.interval = 100;
        form.tmrOne.Tick = [&events] { ++events; };
        form.tmrOne.enabled = true;
        form.Show();
    });
    const auto pin = Default<frmFirst>().shared_from_this();
    Start([] { Runtime::Current().End(); });
    gestures::Click(Default<frmFirst>().cmdGo);
    Start([&events] { ++events; });
    Advance(1000);
    EXPECT_EQ(events, 0);
}

TEST_F(RuntimeTest, RunWaitsUntilNoFormIsLoaded) {
    stage->ExpectMainLoop([this] { user->CloseBox(Default<frmFirst>()); });
    runtime->Run([] { Default<frmFirst>().Show(); });
    EXPECT_TRUE(runtime->LoadedForms().empty());
}

TEST_F(RuntimeTest, RunReturnsAtOnceWhenTheStartUpRoutineLoadsNothing) {
    runtime->Run([] {});
    EXPECT_FALSE(stage->HasExpectations());
}

TEST_F(RuntimeTest, AClickedFormIsKeptUntilItsHandlerReturns) {
    Start([] {
        auto form = New<frmFirst>();
        frmFirst& reference = *form;
        form->cmdGo.Click = [&reference] {
            reference.Unload();
            reference.cmdGo.caption = "still writable";
            EXPECT_EQ(reference.cmdGo.caption(), "still writable");
        };
        form->Show();
    });
    const std::weak_ptr<Form> form = runtime->LoadedForms().front();
    user->Click(static_cast<frmFirst&>(*form.lock()).cmdGo);
    EXPECT_TRUE(form.expired());
}
