#include "forms/headless/HeadlessStage.h"

#include <algorithm>

#include "base/Text.h"
#include "forms/Gestures.h"
#include "forms/Runtime.h"

namespace forms::headless {

namespace {

// In twips: a screen of 1024 by 768 pixels, and the parts of a window.
constexpr Size screen{15'360, 11'520};
constexpr int borderWidth = 45;
constexpr int captionHeight = 285;
constexpr int menuBarHeight = 285;

constexpr int characterWidth = 90;
constexpr int lineHeight = 240;
constexpr int plainFontSize = 8;

}  // namespace

HeadlessStage::HeadlessStage(VirtualClock& stageClock) : HeadlessPumps(stageClock) {
    clock.onAlarm = [] {
        if (Runtime::Exists()) {
            Runtime::Current().RunDueTimers();
        }
    };
    clock.onWallClockSet = [] {
        Runtime::Current().Dispatch(nullptr, [] { Runtime::Current().timers.Realign(); });
    };
    clock.onStuck = [this] { Fail("The stage's timer fires for ever without time passing."); };
}

HeadlessStage::~HeadlessStage() {
    Verify();
    clock.onAlarm = nullptr;
    clock.onWallClockSet = nullptr;
    clock.onStuck = nullptr;
    clock.Arm(std::nullopt);
}

HeadlessWindow& HeadlessStage::WindowOf(Form& form) {
    if (!form.stageData) {
        form.stageData = std::make_unique<HeadlessWindow>();
    }
    return static_cast<HeadlessWindow&>(*form.stageData);
}

void HeadlessStage::FormLoaded(Form& form) { WindowOf(form); }

void HeadlessStage::FormUnloaded(Form& form) {
    form.stageData.reset();
    std::erase_if(typed, [&form](const auto& entry) { return &entry.first->form == &form; });
}

void HeadlessStage::ShowOrHide(Form& form) {
    HeadlessWindow& window = WindowOf(form);
    if (form.IsVisible() && !window.shown) {
        ++window.timesShown;
    }
    window.shown = form.IsVisible();
    window.state = form.windowState;
}

void HeadlessStage::FormChanged(Form& /*form*/, Aspect /*aspect*/) { ++changesShown; }

void HeadlessStage::ControlChanged(Control& control, Aspect aspect) {
    ++changesShown;
    if (aspect == Aspect::Text) {
        std::erase_if(typed, [&control](const auto& entry) { return entry.first == &control; });
    }
}

void HeadlessStage::MenuChanged(Menu& /*menu*/, Aspect /*aspect*/) { ++changesShown; }

void HeadlessStage::UsableChanged(Form& form) {
    // A hidden form is not usable, but its window must be usable when the form is shown again.
    WindowOf(form).usable = form.IsUsable() || !form.IsVisible();
}

void HeadlessStage::FocusMoved(Control& /*control*/) {}

void HeadlessStage::BringToForeground(Form& form) {
    foreground = form.weak_from_this();
    if (WindowOf(form).shown) {
        gestures::Activate(form);
    }
}

std::string HeadlessStage::FetchText(TextBox& textBox) {
    const auto found = std::find_if(typed.begin(), typed.end(), [&textBox](const auto& entry) {
        return entry.first == &textBox;
    });
    return found == typed.end() ? "" : found->second;
}

void HeadlessStage::KeepTyped(TextBox& textBox, const std::string& content) {
    std::erase_if(typed, [&textBox](const auto& entry) { return entry.first == &textBox; });
    typed.emplace_back(&textBox, content);
}

Size HeadlessStage::MeasureText(const Form& /*form*/, const std::string& text, int fontSize) {
    int lines = 1;
    int column = 0;
    int widest = 0;
    for (std::size_t position = 0; position < text.size();) {
        const char32_t character = base::NextCharacter(text, position);
        if (character == U'\n') {
            ++lines;
            column = 0;
        } else if (character != U'\r') {
            widest = std::max(widest, ++column);
        }
    }
    const int points = fontSize == 0 ? plainFontSize : fontSize;
    return {widest * characterWidth * points / plainFontSize,
            lines * lineHeight * points / plainFontSize};
}

Size HeadlessStage::InnerSize(const Form& form) {
    Size size{form.width, form.height};
    if (form.windowState() == WindowState::Maximized) {
        size = screen;
    }
    const Size frame = FrameSize(form);
    return {std::max(size.width - frame.width, 0), std::max(size.height - frame.height, 0)};
}

Size HeadlessStage::FrameSize(const Form& form) {
    Size frame;
    if (form.borderStyle != BorderStyle::None) {
        frame.width += 2 * borderWidth;
        frame.height += 2 * borderWidth + captionHeight;
    }
    if (form.HasMenuBar()) {
        frame.height += menuBarHeight;
    }
    return frame;
}

}  // namespace forms::headless
