#include "forms/Gestures.h"
#include "tests/conformance/Stand.h"

using namespace forms;
using namespace forms_under_test;
using conformance::Lines;

namespace {

class LifecycleTest : public conformance::StandTest {};

}  // namespace

TEST_F(LifecycleTest, LoadsShowsHidesAndUnloadsInOrder) {
    Start([] { Default<frmFirst>().Show(); });
    EXPECT_TRUE(stand->IsShown(Default<frmFirst>()));
    Start([] { Default<frmFirst>().Hide(); });
    EXPECT_FALSE(stand->IsShown(Default<frmFirst>()));
    Start([] { Default<frmFirst>().Show(); });
    EXPECT_TRUE(stand->IsShown(Default<frmFirst>()));
    Start([] { Default<frmFirst>().Unload(); });
    EXPECT_EQ(TakeLog(),
              (Lines{"frmFirst.Design", "frmFirst.Initialize", "frmFirst.Load", "frmFirst.Activate",
                     "frmFirst.Activate", "frmFirst.QueryUnload", "frmFirst.Unload"}));
    EXPECT_EQ(LoadedDefault<frmFirst>(), nullptr);
}

TEST_F(LifecycleTest, ALoadedFormIsNotShown) {
    Start([] { Default<frmFirst>().Load(); });
    stand->Pump(50);
    EXPECT_FALSE(stand->IsShown(Default<frmFirst>()));
}

TEST_F(LifecycleTest, AFormShownAndHiddenInOneHandlerIsNotShown) {
    Start([] {
        Default<frmFirst>().Show();
        Default<frmFirst>().Hide();
    });
    EXPECT_FALSE(stand->IsShown(Default<frmFirst>()));
}

TEST_F(LifecycleTest, TheUserClosesAForm) {
    Start([] { Default<frmFirst>().Show(); });
    const std::weak_ptr<Form> form = Default<frmFirst>().weak_from_this();
    stand->CloseBox(Default<frmFirst>());
    EXPECT_TRUE(form.expired());
    EXPECT_TRUE(runtime->LoadedForms().empty());
}

TEST_F(LifecycleTest, QueryUnloadMayRefuseTheUser) {
    Start([] {
        Default<frmFirst>().onQueryUnload = [](bool& cancel, UnloadMode mode) {
            cancel = true;
            EXPECT_EQ(mode, UnloadMode::CloseBox);
        };
        Default<frmFirst>().Show();
    });
    TakeLog();
    stand->CloseBox(Default<frmFirst>());
    EXPECT_EQ(TakeLog(), Lines{"frmFirst.QueryUnload"});
    EXPECT_TRUE(stand->IsShown(Default<frmFirst>()));
}

TEST_F(LifecycleTest, UnloadMayRefuseTheUser) {
    Start([] {
        Default<frmFirst>().onUnload = [](bool& cancel) { cancel = true; };
        Default<frmFirst>().Show();
    });
    TakeLog();
    stand->CloseBox(Default<frmFirst>());
    EXPECT_EQ(TakeLog(), (Lines{"frmFirst.QueryUnload", "frmFirst.Unload"}));
    EXPECT_TRUE(stand->IsShown(Default<frmFirst>()));
}

TEST_F(LifecycleTest, UnloadDuringQueryUnloadFailsAndTheFirstCallDecides) {
    Start([] {
        Default<frmFirst>().onQueryUnload = [](bool& cancel, UnloadMode) {
            cancel = true;
            EXPECT_FALSE(Default<frmFirst>().Unload());
        };
        Default<frmFirst>().Show();
    });
    stand->CloseBox(Default<frmFirst>());
    EXPECT_TRUE(stand->IsShown(Default<frmFirst>()));
}

TEST_F(LifecycleTest, AClickMayUnloadItsOwnForm) {
    bool wentOn = false;
    Start([&wentOn] {
        auto& form = Default<frmFirst>();
        form.cmdGo.Click = [&form, &wentOn] {
            form.Unload();
            form.cmdGo.caption = "gone";
            wentOn = true;
        };
        form.Show();
    });
    const std::weak_ptr<Form> form = Default<frmFirst>().weak_from_this();
    stand->Click(Default<frmFirst>().cmdGo);
    EXPECT_TRUE(wentOn);
    EXPECT_TRUE(form.expired());
}

TEST_F(LifecycleTest, AClickMayUnloadAnotherFormAndItsOwn) {
    Start([] {
        Default<frmSecond>().Show();
        Default<frmFirst>().cmdGo.Click = [] {
            Default<frmSecond>().Unload();
            Default<frmFirst>().Unload();
        };
        Default<frmFirst>().Show();
    });
    TakeLog();
    stand->Click(Default<frmFirst>().cmdGo);
    EXPECT_TRUE(runtime->LoadedForms().empty());
    EXPECT_EQ(TakeLog(), (Lines{"frmSecond.QueryUnload", "frmSecond.Unload", "frmFirst.QueryUnload",
                                "frmFirst.Unload"}));
}

TEST_F(LifecycleTest, ATextThatIsTypedMayUnloadItsOwnForm) {
    Start([] {
        auto& form = Default<frmFirst>();
        form.txtName.Change = [&form] {
            if (form.txtName.text() == "go") {
                form.Unload();
            }
        };
        form.Show();
    });
    const std::weak_ptr<Form> form = Default<frmFirst>().weak_from_this();
    stand->Type(Default<frmFirst>().txtName, "go");
    EXPECT_TRUE(form.expired());
}

TEST_F(LifecycleTest, ATimerMayUnloadItsOwnForm) {
    int ticks = 0;
    Start([&ticks] {
        auto& form = Default<frmFirst>();
        for (Timer* timer : form.Timers()) {
            timer->interval = 30;
            timer->Tick = [&form, &ticks] {
                ++ticks;
                form.Unload();
            };
            timer->enabled = true;
        }
        form.Show();
    });
    const std::weak_ptr<Form> form = Default<frmFirst>().weak_from_this();
    PumpUntil([&ticks] { return ticks > 0; });
    stand->Pump(200);
    EXPECT_EQ(ticks, 1);
    EXPECT_TRUE(form.expired());
}

TEST_F(LifecycleTest, QueryUnloadMayUnloadAnotherForm) {
    Start([] {
        Default<frmSecond>().Show();
        Default<frmFirst>().onQueryUnload = [](bool&, UnloadMode) {
            Default<frmSecond>().Unload();
        };
        Default<frmFirst>().Show();
    });
    TakeLog();
    stand->CloseBox(Default<frmFirst>());
    EXPECT_EQ(TakeLog(), (Lines{"frmFirst.QueryUnload", "frmSecond.QueryUnload", "frmSecond.Unload",
                                "frmFirst.Unload"}));
    EXPECT_TRUE(runtime->LoadedForms().empty());
}

TEST_F(LifecycleTest, UnloadMayUnloadAnotherFormAndLoadAThird) {
    Start([] {
        Default<frmSecond>().Show();
        Default<frmFirst>().onUnload = [](bool&) {
            Default<frmSecond>().Unload();
            Default<frmThird>().Show();
            Default<frmFirst>().Unload();
        };
        Default<frmFirst>().Show();
    });
    stand->CloseBox(Default<frmFirst>());
    ASSERT_EQ(runtime->LoadedForms().size(), 1U);
    EXPECT_TRUE(stand->IsShown(Default<frmThird>()));
    EXPECT_EQ(runtime->ActiveForm(), &Default<frmThird>());
}

TEST_F(LifecycleTest, ADefaultInstanceIsMadeAgainAfterItWasUnloaded) {
    Start([] {
        Default<frmFirst>().Show();
        Default<frmFirst>().txtName.text = "old";
    });
    stand->CloseBox(Default<frmFirst>());
    TakeLog();
    Start([] { Default<frmFirst>().Show(); });
    EXPECT_EQ(TakeLog().size(), 4U);
    EXPECT_EQ(stand->ShownText(Default<frmFirst>().txtName), "");
}

TEST_F(LifecycleTest, FurtherInstancesLiveBesideTheDefault) {
    std::weak_ptr<frmFirst> further;
    Start([&further] {
        Default<frmFirst>().Show();
        const auto form = New<frmFirst>();
        form->Show();
        form->txtName.text = "further";
        further = form;
    });
    EXPECT_EQ(stand->ShownText(Default<frmFirst>().txtName), "");
    EXPECT_EQ(stand->ShownText(further.lock()->txtName), "further");
    stand->CloseBox(*further.lock());
    EXPECT_TRUE(further.expired());
    EXPECT_TRUE(stand->IsShown(Default<frmFirst>()));
}

TEST_F(LifecycleTest, TheFormUsedLastBecomesActiveWhenTheActiveOneGoes) {
    Start([] {
        Default<frmFirst>().Show();
        Default<frmSecond>().Show();
        Default<frmThird>().Show();
    });
    stand->Click(Default<frmFirst>().cmdGo);
    EXPECT_EQ(runtime->ActiveForm(), &Default<frmFirst>());
    stand->CloseBox(Default<frmFirst>());
    PumpUntil([this] { return runtime->ActiveForm() == &Default<frmThird>(); });
    Start([] { Default<frmThird>().Hide(); });
    PumpUntil([this] { return runtime->ActiveForm() == &Default<frmSecond>(); });
}

TEST_F(LifecycleTest, TheUserMinimisesAndRestores) {
    Start([] { Default<frmFirst>().Show(); });
    stand->Minimize(Default<frmFirst>());
    EXPECT_EQ(Default<frmFirst>().windowState(), WindowState::Minimized);
    EXPECT_TRUE(Default<frmFirst>().IsVisible());
    stand->Restore(Default<frmFirst>());
    EXPECT_EQ(Default<frmFirst>().windowState(), WindowState::Normal);
    int clicks = 0;
    Default<frmFirst>().cmdGo.Click = [&clicks] { ++clicks; };
    stand->Click(Default<frmFirst>().cmdGo);
    EXPECT_EQ(clicks, 1);
}

TEST_F(LifecycleTest, AFormShownMinimisedIsFilledWhenItIsRestored) {
    Start([] {
        Default<frmFirst>().windowState = WindowState::Minimized;
        Default<frmFirst>().txtName.text = "waiting";
        Default<frmFirst>().Show();
    });
    stand->Pump(50);
    EXPECT_EQ(Default<frmFirst>().windowState(), WindowState::Minimized);
    stand->Restore(Default<frmFirst>());
    EXPECT_EQ(stand->ShownText(Default<frmFirst>().txtName), "waiting");
    stand->Type(Default<frmFirst>().txtName, "typed");
    EXPECT_EQ(Default<frmFirst>().txtName.text(), "typed");
}

TEST_F(LifecycleTest, TheSessionEndsInTheOrderOfLoading) {
    Start([] {
        Default<frmSecond>().Load();
        Default<frmFirst>().Show();
    });
    TakeLog();
    gestures::EndSession();
    EXPECT_EQ(TakeLog(), (Lines{"frmSecond.QueryUnload", "frmSecond.Unload", "frmFirst.QueryUnload",
                                "frmFirst.Unload"}));
}
