#include "forms/Devices.h"
#include "forms/headless/HeadlessDevices.h"
#include "forms/headless/HeadlessStage.h"
#include "forms/headless/User.h"
#include "tests/conformance/Stand.h"

namespace conformance {

namespace {

using namespace forms;

class HeadlessStand : public Stand {
  public:
    HeadlessStand() {
        Machine() = Devices{};
        Machine().clock = &clock;
        stage.onFailure = [](const std::string& message) { ADD_FAILURE() << message; };
    }
    ~HeadlessStand() override { Machine() = Devices{}; }

    forms::Stage& Stage() override { return stage; }
    void Pump(int milliseconds) override { clock.Advance(milliseconds); }
    std::int64_t Milliseconds() override { return clock.MonotonicMilliseconds(); }
    void BeBusy(int milliseconds) override { clock.Pass(milliseconds); }

    void Click(Control& control) override { user.Click(control); }
    void Type(TextBox& textBox, const std::string& content) override {
        user.Type(textBox, content);
    }
    void Select(ComboBox& comboBox, int index) override { user.Select(comboBox, index); }
    void Choose(Menu& entry) override { user.Choose(entry); }
    void CloseBox(Form& form) override { user.CloseBox(form); }
    void Minimize(Form& form) override { user.Minimize(form); }
    void Restore(Form& form) override { user.Restore(form); }
    void PressTab() override { user.PressTab(); }
    void PressEnter() override { user.PressEnter(); }
    void PressEscape() override { user.PressEscape(); }
    void PressMenuKey() override { user.PressMenuKey(); }
    void PressAccessKey(Form& form, char letter) override { user.PressAccessKey(form, letter); }
    void Drag(Form& form, const Script& during) override {
        user.Drag(form, form.left, form.top, AfterStaying(during));
    }

    void ExpectBox(const std::string& text, const std::string& caption, BoxButtons buttons,
                   BoxResult answer, Script during) override {
        const bool isReport = text.rfind("Run-time error", 0) == 0;
        stage.ExpectBox(text, caption, isReport ? BoxIcon::Critical : BoxIcon::None, buttons,
                        answer, AfterStaying(std::move(during)));
    }
    void ExpectModal(std::function<bool(const Form&)> matches,
                     std::function<void(Form&)> script) override {
        stage.ExpectModal<Form>([this, matches, script](Form& form) {
            Stay();
            EXPECT_TRUE(matches(form)) << form.name << " is not the one that was expected";
            script(form);
        });
    }
    void ExpectPopup(Menu& menu, Menu* entry, Script during) override {
        stage.ExpectPopup(menu.name, [script = AfterStaying(std::move(during)), entry](Menu&) {
            script();
            return entry;
        });
    }
    void Verify() override { stage.Verify(); }

    bool IsShown(Form& form) override {
        return form.IsLoaded() && headless::HeadlessStage::WindowOf(form).shown;
    }
    bool CanBeUsed(Form& form) override {
        return IsShown(form) && headless::HeadlessStage::WindowOf(form).usable;
    }
    bool CanBeUsed(Control& control) override {
        return control.IsEffectivelyVisible() && control.IsEffectivelyEnabled();
    }
    std::string ShownCaption(CommandButton& button) override { return button.caption; }
    std::string ShownText(TextBox& textBox) override { return textBox.text; }
    bool IsShownChecked(Control& control) override {
        return control.kind == ControlKind::CheckBox ? static_cast<CheckBox&>(control).value() == 1
                                                     : static_cast<OptionButton&>(control).value();
    }

  private:
    void Stay() {
        for (int looks = 0; stayOpenUntil && !stayOpenUntil(); ++looks) {
            ASSERT_LT(looks, mostLooks) << "what was waited for never happened";
            clock.Advance(10);
        }
    }
    Script AfterStaying(Script script) {
        return [this, run = std::move(script)] {
            Stay();
            if (run) {
                run();
            }
        };
    }

    headless::VirtualClock clock;
    headless::HeadlessStage stage{clock};
    headless::RecordedTray tray;
    headless::User user{stage, tray};
};

}  // namespace

std::unique_ptr<Stand> MakeStand() { return std::make_unique<HeadlessStand>(); }

}  // namespace conformance
