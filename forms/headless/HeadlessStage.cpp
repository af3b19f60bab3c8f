#include "forms/headless/HeadlessStage.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "base/Text.h"
#include "forms/Gestures.h"
#include "forms/Runtime.h"

namespace forms::headless {

namespace {

// A screen of 1024 by 768 pixels.
constexpr Size screen{15'360, 11'520};
constexpr int borderWidth = 45;
constexpr int captionHeight = 285;
constexpr int menuBarHeight = 285;

constexpr int characterWidth = 90;
constexpr int lineHeight = 240;
constexpr int plainFontSize = 8;

}  // namespace

// Marks a wait as open for as long as it stands.
class HeadlessStage::Waiting {
  public:
    Waiting(HeadlessStage& waitingStage, Wait wait) : stage(waitingStage) {
        stage.waits.push_back(wait);
    }
    ~Waiting() { stage.waits.pop_back(); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

  private:
    HeadlessStage& stage;
};

HeadlessStage::HeadlessStage(VirtualClock& stageClock) : clock(stageClock) {
    clock.onAlarm = [] {
        if (Runtime::Exists()) {
            Runtime::Current().RunDueTimers();
        }
    };
    clock.onStuck = [this] { Fail("The stage's timer fires for ever without time passing."); };
}

HeadlessStage::~HeadlessStage() {
    Verify();
    clock.onAlarm = nullptr;
    clock.onStuck = nullptr;
    clock.Arm(std::nullopt);
}

void HeadlessStage::Jump(std::int64_t seconds, std::int64_t milliseconds) {
    clock.MoveWallClock(seconds, milliseconds);
    Runtime::Current().Dispatch(nullptr, [] { Runtime::Current().timers.Realign(); });
}

void HeadlessStage::Suspend(std::int64_t seconds) {
    constexpr std::int64_t thousand = 1000;
    clock.Pass(seconds * thousand);
    Runtime::Current().Dispatch(nullptr, [] { Runtime::Current().timers.Realign(); });
    clock.Advance(0);
}

void HeadlessStage::Fail(const std::string& message) {
    if (onFailure) {
        onFailure(message);
        return;
    }
    std::fprintf(stderr, "Headless stage: %s\n", message.c_str());
    std::abort();
}

std::string HeadlessStage::WhatIsInTheWay() const {
    if (waits.empty()) {
        return "";
    }
    switch (waits.back()) {
        case Wait::Box:
            return "a message box is open";
        case Wait::Popup:
            return "a pop-up menu is open";
        case Wait::OpenDialog:
            return "a dialog for opening a file is open";
        case Wait::Modal:
        case Wait::MainLoop:
            break;
    }
    return "";
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
    // One that is hidden meanwhile is not shut off when it comes back.
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

void HeadlessStage::ForgetShown() {
    boxes.clear();
    popups.clear();
    dialogs.clear();
}

BoxResult HeadlessStage::ShowMessageBox(const BoxRequest& request) {
    CountWait();
    boxes.push_back(request);
    const Waiting open(*this, Wait::Box);
    if (const auto wanted = TakeNext<ExpectedBox>()) {
        CompareBox(*wanted, request);
        if (wanted->during) {
            wanted->during();
        }
        return IsAnswerOf(request, wanted->answer) ? wanted->answer : DefaultAnswerOf(request);
    }
    if (expected.empty() && improvise.box) {
        return improvise.box(request);
    }
    Fail("Unexpected " + Describe(request) + InsteadOf());
    return DefaultAnswerOf(request);
}

void HeadlessStage::RunModal(Form& form) {
    if (!form.IsVisible()) {
        return;
    }
    CountWait();
    const Waiting open(*this, Wait::Modal);
    const std::string name = form.name;
    const auto pin = form.shared_from_this();
    const bool next = !expected.empty() && std::holds_alternative<ExpectedModal>(expected.front());
    if (next && std::get<ExpectedModal>(expected.front()).matches(form)) {
        TakeNext<ExpectedModal>()->script(form);  // NOLINT(bugprone-unchecked-optional-access)
        if (form.IsVisible() && !Runtime::Current().HasEnded()) {
            Fail("The script for modal " + name + " has ended and the form is still open.");
        }
    } else if (expected.empty() && improvise.modal) {
        improvise.modal(form);
    } else {
        Fail("Unexpected modal " + name + InsteadOf());
    }
    ForceClosed(form);
}

Menu* HeadlessStage::ShowPopupMenu(Form& form, Menu& menu) {
    CountWait();
    Popup popup{menu.name, {}};
    for (const Menu* entry : menu.entries) {
        if (entry->visible) {
            popup.captions.push_back(entry->caption);
        }
    }
    popups.push_back(popup);
    const Waiting open(*this, Wait::Popup);
    const auto pin = form.shared_from_this();
    Menu* chosen = nullptr;
    if (const auto wanted = TakeNext<ExpectedPopup>()) {
        chosen = ChosenEntry(*wanted, menu);
    } else if (expected.empty() && improvise.popup) {
        chosen = improvise.popup(menu);
    } else {
        Fail("Unexpected pop-up menu " + popup.name + InsteadOf());
    }
    return Runtime::Current().HasEnded() || !form.IsLoaded() ? nullptr : chosen;
}

std::optional<std::string> HeadlessStage::ShowOpenDialog(Form& form,
                                                         const FileDialogRequest& request) {
    CountWait();
    dialogs.push_back(request);
    const Waiting open(*this, Wait::OpenDialog);
    const auto pin = form.shared_from_this();
    if (const auto wanted = TakeNext<ExpectedDialog>()) {
        if (wanted->during) {
            wanted->during();
        }
        return wanted->result;
    }
    if (expected.empty() && improvise.openDialog) {
        return improvise.openDialog(request);
    }
    Fail("Unexpected dialog for opening a file" + InsteadOf());
    return std::nullopt;
}

void HeadlessStage::RunMainLoop() {
    const Waiting open(*this, Wait::MainLoop);
    const auto wanted = TakeNext<ExpectedMainLoop>();
    if (!wanted) {
        Fail("Unexpected main loop" + InsteadOf());
        return;
    }
    wanted->script();
    if (!Runtime::Current().HasEnded() && !Runtime::Current().LoadedForms().empty()) {
        Fail("The script for the main loop has ended and the program still runs.");
    }
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
