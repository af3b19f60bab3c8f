#include <gtest/gtest.h>

#include <string>

#include "alarms/frmKillAlarm.h"
#include "info/frmSplash.h"
#include "info/frmTip.h"
#include "tests/support/WholeProgram.h"

namespace {

using forms::LoadedDefault;

class frmSplashTest : public testing_support::WholeProgram {
  protected:
    void StoreViewTips(const std::string& value) {
        settings.values[{"Startup", "View Tips"}] = value;
    }

    // Expects that each time the tips are opened, the box has this state and OK stores it.
    void ExpectEachTimeInTheMenu(int checked) {
        for (int opened = 0; opened < 3; ++opened) {
            stage->ExpectModal<frmTip>([this, checked](frmTip& tips) {
                EXPECT_EQ(tips.chkShowTips.value(), checked);
                user->Click(tips.cmdOK);
            });
            user->Choose(Main().mnuHelpShowTips);
            EXPECT_EQ(settings.Read("Startup", "View Tips"), std::to_string(checked));
        }
    }
};

TEST_F(frmSplashTest, ShowsTheVersion) {
    StoreViewTips("1");
    Start(StandardCode::Main);
    auto& splash = forms::Default<frmSplash>();
    EXPECT_TRUE(splash.IsVisible());
    EXPECT_EQ(splash.lblLogo.caption(), "Jotwright Version " JOTWRIGHT_PROJECT_VERSION);
    EXPECT_TRUE(splash.tmrSplash.enabled());
}

TEST_F(frmSplashTest, ItsTimerIsOffUntilTheStartUpRoutineSwitchesItOn) {
    Start([] { forms::Default<frmSplash>().Show(); });
    EXPECT_FALSE(forms::Default<frmSplash>().tmrSplash.enabled());
    Advance(5000);
    EXPECT_TRUE(forms::Default<frmSplash>().IsVisible());
    EXPECT_EQ(LoadedDefault<frmMain>(), nullptr);
}

TEST_F(frmSplashTest, TheFirstTickOnlyCounts) {
    StoreViewTips("1");
    Start(StandardCode::Main);
    Advance(999);
    EXPECT_TRUE(forms::Default<frmSplash>().IsVisible());
    EXPECT_EQ(LoadedDefault<frmMain>(), nullptr);
}

TEST_F(frmSplashTest, TheSecondTickOpensTheMainWindowAndLoadsTheHiddenOnes) {
    StoreViewTips("1");
    Start(StandardCode::Main);
    Advance(1000);
    EXPECT_EQ(LoadedDefault<frmSplash>(), nullptr);
    EXPECT_TRUE(Main().IsVisible());
    for (const forms::Form* form : {static_cast<forms::Form*>(LoadedDefault<frmNote>()),
                                    static_cast<forms::Form*>(LoadedDefault<frmDisplayNote>()),
                                    static_cast<forms::Form*>(LoadedDefault<frmKillAlarm>()),
                                    static_cast<forms::Form*>(LoadedDefault<frmTip>())}) {
        ASSERT_NE(form, nullptr);
        EXPECT_FALSE(form->IsVisible()) << form->name;
    }
}

TEST_F(frmSplashTest, TheMainWindowIsShownAndActiveBeforeTheTipsDisableIt) {
    int pauses = 0;
    stage->duringPause = [&] {
        ++pauses;
        EXPECT_EQ(LoadedDefault<frmSplash>(), nullptr);
        EXPECT_TRUE(Main().IsShownOnStage());
        EXPECT_TRUE(Main().IsUsable());
        EXPECT_EQ(runtime->ActiveForm(), &Main());
        EXPECT_EQ(Main().focus.ActiveControl(), &Main().txtNoteTitle);
    };
    stage->ExpectModal<frmTip>([&](frmTip& tips) {
        EXPECT_EQ(pauses, 1);
        user->Click(tips.cmdOK);
    });
    Start(StandardCode::Main);
    Advance(1000);
    EXPECT_EQ(runtime->ActiveForm(), &Main());
    EXPECT_EQ(Main().focus.ActiveControl(), &Main().txtNoteTitle);
}

TEST_F(frmSplashTest, TheProgramCanEndBeforeTheTipsOpen) {
    stage->duringPause = [&] { user->Choose(Main().mnuFileExit); };
    Start(StandardCode::Main);
    Advance(1000);
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(frmSplashTest, TheTipsAreShownModallyUnlessTheUserSwitchedThemOff) {
    stage->ExpectModal<frmTip>([this](frmTip& tips) {
        EXPECT_EQ(LoadedDefault<frmSplash>(), nullptr);
        EXPECT_TRUE(Main().IsVisible());
        EXPECT_FALSE(Main().IsUsable());
        EXPECT_EQ(tips.chkShowTips.value(), 0);
        user->Click(tips.cmdOK);
    });
    Start(StandardCode::Main);
    Advance(1000);
    EXPECT_TRUE(Main().IsUsable());
    ASSERT_NE(LoadedDefault<frmTip>(), nullptr);
    EXPECT_FALSE(LoadedDefault<frmTip>()->IsVisible());
}

TEST_F(frmSplashTest, TheBoxShowsTheValueReadAtStartUpAndOkWritesIt) {
    stage->ExpectModal<frmTip>([this](frmTip& tips) {
        user->Click(tips.chkShowTips);
        user->Click(tips.cmdOK);
    });
    Start(StandardCode::Main);
    Advance(1000);
    EXPECT_EQ(settings.Read("Startup", "View Tips"), "1");
    ExpectEachTimeInTheMenu(0);
}

TEST_F(frmSplashTest, OpeningSuppressedTipsKeepsThemSuppressed) {
    StartQuietly();
    ExpectEachTimeInTheMenu(1);
}

TEST_F(frmSplashTest, AnInvalidCheckMarkShowsTheTipsWithAnEmptyBox) {
    for (const char* value : {"3", "-1", "32767", "40000", "-40000", "1e400"}) {
        StoreViewTips(value);
        int shown = 0;
        stage->ExpectModal<frmTip>([&](frmTip& tips) {
            ++shown;
            EXPECT_EQ(tips.chkShowTips.value(), 0) << value;
            user->CloseBox(tips);
        });
        Start(StandardCode::Main);
        Advance(1000);
        EXPECT_EQ(shown, 1) << value;
        EXPECT_FALSE(runtime->HasEnded()) << value;
        Restart();
    }
}

TEST_F(frmSplashTest, AGrayedBoxIsShownAndCountsAsUnchecked) {
    StoreViewTips("2");
    stage->ExpectModal<frmTip>([this](frmTip& tips) {
        EXPECT_EQ(tips.chkShowTips.value(), 2);
        user->Click(tips.cmdOK);
    });
    Start(StandardCode::Main);
    Advance(1000);
    EXPECT_EQ(settings.Read("Startup", "View Tips"), "0");
}

TEST_F(frmSplashTest, TimersRunWhileTheTipsAreOpen) {
    SetNow(2004, 5, 14, 9, 0, 0);
    stage->ExpectModal<frmTip>([this](frmTip& tips) {
        Main().tmrCooKoo.enabled = true;
        Main().lblCooKoo.visible = true;
        Advance(4 * 60 * 60 * 1000);
        EXPECT_GT(sound.Count(forms::headless::RecordedSound::Kind::ToEnd), 0);
        user->Click(tips.cmdOK);
    });
    Start(StandardCode::Main);
    Advance(1000);
}

TEST_F(frmSplashTest, AValueThatIsNotANumberEndsTheProgram) {
    StoreViewTips("often");
    ExpectRunTimeError(13, "Type mismatch");
    Start(StandardCode::Main);
    Advance(1000);
    EXPECT_TRUE(runtime->HasEnded());
}

TEST_F(frmSplashTest, AMissingMascotEndsTheProgram) {
    files.Remove("C:\\Jotwright\\mascot.jpg");
    ExpectRunTimeError(53, "File not found");
    Start(StandardCode::Main);
    EXPECT_TRUE(runtime->HasEnded());
}

}  // namespace
