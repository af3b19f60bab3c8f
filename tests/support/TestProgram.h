#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/Runtime.h"
#include "forms/headless/HeadlessDevices.h"
#include "forms/headless/HeadlessLocale.h"
#include "forms/headless/HeadlessSettings.h"
#include "forms/headless/HeadlessStage.h"
#include "forms/headless/MemoryFiles.h"
#include "forms/headless/User.h"

namespace testing_support {

inline const std::string applicationFolder = "C:\\Jotwright";

// The stage of TestProgram. Keeps track of every form that is loaded.
class WatchedStage : public forms::headless::HeadlessStage {
  public:
    using HeadlessStage::HeadlessStage;
    void FormLoaded(forms::Form& form) override;
    void ShowOrHide(forms::Form& form) override;
    void FormChanged(forms::Form& form, forms::Aspect aspect) override;
    void ControlChanged(forms::Control& control, forms::Aspect aspect) override;
    void MenuChanged(forms::Menu& menu, forms::Aspect aspect) override;
    // Names of the forms that still exist.
    std::vector<std::string> Survivors() const;
    // The number of times that the stage had to show something differently.
    int Updates() const { return updates; }

  private:
    void CountUpdate(const forms::Form& form) { updates += form.IsShownOnStage() ? 1 : 0; }

    int updates = 0;
    struct Watched {
        std::weak_ptr<forms::Form> form;
        std::string name;
    };
    std::vector<Watched> watched;
};

// A new machine and a runtime on the headless stage for each test. The only files are the shipped
// files, in C:\Jotwright. The time is Friday, 14 May 2004, 9:00:00. At its end, a test fails if an
// expectation was not met, if a form outlives the runtime, or if a timer is queued although no form
// is loaded.
class TestProgram : public ::testing::Test {
  protected:
    TestProgram();
    ~TestProgram() override;
    void SetUp() override;
    void TearDown() override;

    // Runs code as the runtime runs a handler, for example a start-up routine.
    void Start(const std::function<void()>& handler) { runtime->Dispatch(nullptr, handler); }
    void Advance(std::int64_t milliseconds) { clock.Advance(milliseconds); }
    // Ends the process without any event and starts a new one on the same disk, with the same
    // settings and clock. Keeps all records so far.
    void Restart();
    // Sets the clock before the program starts.
    void SetNow(int year, int month, int day, int hour, int minute, int second);

    // Expects that a message box with exactly these properties and an OK button opens next. The
    // script runs while the box is open; see HeadlessStage::ExpectBox.
    void ExpectMessage(const std::string& text, const std::string& caption, forms::BoxIcon icon,
                       forms::headless::Script during = nullptr);
    // Like ExpectMessage, for a box with the buttons Yes and No. Yes is the default button.
    void ExpectQuestion(const std::string& text, const std::string& caption, forms::BoxIcon icon,
                        forms::BoxResult answer, forms::headless::Script during = nullptr);
    // Expects the report of an error that no handler has trapped.
    void ExpectRunTimeError(int number, const std::string& description,
                            forms::headless::Script during = nullptr);

    // Gestures on the icon in the notification area. They work while a box or a modal form is open
    // too.
    void ClickTrayIcon();
    void DoubleClickTrayIcon();
    void RightClickTrayIcon();

    forms::headless::VirtualClock clock;
    forms::headless::MemoryFiles files;
    forms::headless::HeadlessSettings settings;
    forms::headless::HeadlessLocale locale;
    forms::headless::RecordedSound sound{clock};
    forms::headless::RecordedTray tray;
    forms::headless::RecordedPrinter printer;
    forms::headless::RecordedShell shell;
    forms::headless::RecordedPictures pictures{files};
    forms::headless::RecordedSystem system;

    // SetUp creates these objects, and Restart replaces them.
    std::unique_ptr<WatchedStage> stage;
    std::unique_ptr<forms::Runtime> runtime;
    std::unique_ptr<forms::headless::User> user;

  private:
    void Boot();
    void ShutDown();
};

}  // namespace testing_support
