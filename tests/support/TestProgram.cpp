#include "tests/support/TestProgram.h"

#include <utility>

#include "app/StandardCode.h"
#include "app/TrayMessages.h"
#include "forms/Form.h"

namespace testing_support {

namespace {

constexpr const char* shippedFiles[] = {
    "logo.ico",        "note.ico",         "alarmon.ico",      "jotwright_title.gif",
    "mascot.jpg",      "letters.gif",      "mascot_error.gif", "no_Fslash.gif",
    "error.gif",       "Alarm buzzer.wav", "Alert chime.wav",  "Cuckoo clock.wav",
    "Alarm clock.wav", "Bell alarm.wav",   "JOTWRIGHT2.hlp",
};

}  // namespace

void WatchedStage::FormLoaded(forms::Form& form) {
    std::erase_if(watched, [](const Watched& entry) { return entry.form.expired(); });
    watched.push_back({form.weak_from_this(), form.name});
    HeadlessStage::FormLoaded(form);
}

void WatchedStage::ShowOrHide(forms::Form& form) {
    ++updates;
    HeadlessStage::ShowOrHide(form);
}

void WatchedStage::FormChanged(forms::Form& form, forms::Aspect aspect) {
    CountUpdate(form);
    HeadlessStage::FormChanged(form, aspect);
}

void WatchedStage::ControlChanged(forms::Control& control, forms::Aspect aspect) {
    CountUpdate(control.form);
    HeadlessStage::ControlChanged(control, aspect);
}

void WatchedStage::MenuChanged(forms::Menu& menu, forms::Aspect aspect) {
    CountUpdate(menu.form);
    HeadlessStage::MenuChanged(menu, aspect);
}

std::vector<std::string> WatchedStage::Survivors() const {
    std::vector<std::string> names;
    for (const Watched& entry : watched) {
        if (!entry.form.expired()) {
            names.push_back(entry.name);
        }
    }
    return names;
}

TestProgram::TestProgram() = default;
TestProgram::~TestProgram() = default;

void TestProgram::SetUp() {
    files.PutFolder(applicationFolder);
    for (const char* name : shippedFiles) {
        files.PutFile(applicationFolder + "\\" + name, std::string("shipped ") + name);
    }
    forms::Devices& machine = forms::Machine();
    machine.clock = &clock;
    machine.files = &files;
    machine.settings = &settings;
    machine.sound = &sound;
    machine.tray = &tray;
    machine.printer = &printer;
    machine.shell = &shell;
    machine.pictures = &pictures;
    machine.locale = &locale;
    machine.system = &system;
    Boot();
}

void TestProgram::TearDown() {
    ShutDown();
    forms::Machine() = forms::Devices{};
}

void TestProgram::Restart() {
    ShutDown();
    tray.icon.reset();
    files.Restart();
    Boot();
}

void TestProgram::SetNow(int year, int month, int day, int hour, int minute, int second) {
    clock.SetNow(Combine(base::DateTime::FromDate(year, month, day),
                         base::DateTime::FromTime(hour, minute, second)));
}

void TestProgram::ExpectMessage(const std::string& text, const std::string& caption,
                                forms::BoxIcon icon, forms::headless::Script during) {
    stage->ExpectBox(text, caption, icon, forms::BoxButtons::Ok, forms::BoxResult::Ok,
                     forms::BoxResult::Ok, std::move(during));
}

void TestProgram::ExpectQuestion(const std::string& text, const std::string& caption,
                                 forms::BoxIcon icon, forms::BoxResult answer,
                                 forms::headless::Script during) {
    stage->ExpectBox(text, caption, icon, forms::BoxButtons::YesNo, answer, forms::BoxResult::Yes,
                     std::move(during));
}

void TestProgram::ExpectRunTimeError(int number, const std::string& description,
                                     forms::headless::Script during) {
    ExpectMessage("Run-time error '" + std::to_string(number) + "':\r\n\r\n" + description,
                  "Jotwright", forms::BoxIcon::Critical, std::move(during));
}

void TestProgram::ClickTrayIcon() { user->Tray(TrayMessages::leftButtonUp); }
void TestProgram::DoubleClickTrayIcon() { user->Tray(TrayMessages::leftDoubleClick); }
void TestProgram::RightClickTrayIcon() { user->Tray(TrayMessages::rightButtonUp); }

void TestProgram::Boot() {
    StandardCode::Reset();
    stage = std::make_unique<WatchedStage>(clock);
    stage->onFailure = [](const std::string& message) { ADD_FAILURE() << message; };
    runtime = std::make_unique<forms::Runtime>(*stage, "Jotwright");
    user = std::make_unique<forms::headless::User>(*stage, tray);
}

void TestProgram::ShutDown() {
    if (!stage) {
        return;
    }
    stage->Verify();
    if (runtime->LoadedForms().empty()) {
        EXPECT_FALSE(runtime->timers.NextDue().has_value())
            << "a timer is queued and no form is loaded";
    }
    user.reset();
    StandardCode::Reset();
    runtime.reset();
    for (const std::string& name : stage->Survivors()) {
        ADD_FAILURE() << name << " outlives the program";
    }
    stage.reset();
}

}  // namespace testing_support
