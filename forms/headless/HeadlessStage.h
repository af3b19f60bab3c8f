#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "forms/headless/HeadlessPumps.h"

namespace forms::headless {

// The state in which the screen shows a form.
struct HeadlessWindow : Form::StageData {
    bool shown = false;
    bool usable = true;
    WindowState state = WindowState::Normal;
    int timesShown = 0;  // number of times that the form changed from hidden to shown
};

// A stage without a screen: time is virtual, and the user is a script.
class HeadlessStage : public HeadlessPumps {
  public:
    explicit HeadlessStage(VirtualClock& stageClock);
    // Calls Verify, which fails the test if an expectation was not met.
    ~HeadlessStage() override;

    Form* Foreground() const { return foreground.lock().get(); }
    MousePointer Pointer() const { return pointer; }
    // The number of property changes that a real stage would have had to draw.
    std::int64_t ChangesShown() const { return changesShown; }
    bool HasQuit() const { return quit; }

    static HeadlessWindow& WindowOf(Form& form);

    void FormLoaded(Form& form) override;
    void FormUnloaded(Form& form) override;
    void ShowOrHide(Form& form) override;
    void FormChanged(Form& form, Aspect aspect) override;
    void ControlChanged(Control& control, Aspect aspect) override;
    void MenuChanged(Menu& menu, Aspect aspect) override;
    void UsableChanged(Form& form) override;
    void FocusMoved(Control& control) override;
    void BringToForeground(Form& form) override;
    std::string FetchText(TextBox& textBox) override;
    void Quit() override { quit = true; }
    void ArmTimer(std::optional<std::int64_t> due) override { clock.Arm(due); }
    Size MeasureText(const Form& form, const std::string& text, int fontSize) override;
    Size InnerSize(const Form& form) override;
    Size FrameSize(const Form& form) override;
    void SetMousePointer(MousePointer newPointer) override { pointer = newPointer; }

    // Keeps the text that the user has typed, for FetchText (see User::Type).
    void KeepTyped(TextBox& textBox, const std::string& content);

  private:
    std::vector<std::pair<TextBox*, std::string>> typed;
    std::weak_ptr<Form> foreground;
    MousePointer pointer = MousePointer::Default;
    std::int64_t changesShown = 0;
    bool quit = false;
};

}  // namespace forms::headless
