#include "forms/headless/HeadlessPumps.h"

#include "forms/Gestures.h"
#include "forms/Runtime.h"

namespace forms::headless {

namespace {

constexpr int mostWaitsInOneMoment = 10'000;

bool IsOpen(const Form& form) { return form.IsVisible() && !Runtime::Current().HasEnded(); }

void ForceClosed(Form& form) {
    if (IsOpen(form)) {
        gestures::Close(form);
    }
    if (IsOpen(form)) {
        Runtime::Current().Dispatch(&form, [&form] { form.Hide(); });
    }
}

}  // namespace

// A wait that is open as long as this object lives.
class HeadlessPumps::Waiting {
  public:
    Waiting(HeadlessPumps& headlessPumps, Wait wait) : pumps(headlessPumps) {
        pumps.CountWait();
        pumps.waits.push_back(wait);
    }
    ~Waiting() { pumps.waits.pop_back(); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

  private:
    HeadlessPumps& pumps;
};

void HeadlessPumps::CountWait() {
    if (clock.MonotonicMilliseconds() != momentOfLastWait) {
        momentOfLastWait = clock.MonotonicMilliseconds();
        waitsInMoment = 0;
    }
    if (++waitsInMoment > mostWaitsInOneMoment) {
        Fail("More than 10,000 boxes and the like without time passing: the program is ended.");
        Runtime::Current().End();
    }
}

std::string HeadlessPumps::ReasonForBlocking() const {
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

void HeadlessPumps::ForgetShown() {
    boxes.clear();
    popups.clear();
    dialogs.clear();
}

BoxResult HeadlessPumps::ShowMessageBox(const BoxRequest& request) {
    const Waiting open(*this, Wait::Box);
    boxes.push_back(request);
    if (const auto wanted = TakeNext<ExpectedBox>()) {
        CompareBox(*wanted, request);
        if (wanted->during) {
            wanted->during();
        }
        return IsAnswerOf(request, wanted->answer) ? wanted->answer : DefaultAnswerOf(request);
    }
    if (!HasExpectations() && improvise.box) {
        return improvise.box(request);
    }
    FailUnexpected(Describe(request));
    return DefaultAnswerOf(request);
}

void HeadlessPumps::CompareBox(const ExpectedBox& wanted, const BoxRequest& request) const {
    const bool sameDefault = !wanted.checkDefault || wanted.request.options.secondIsDefault ==
                                                         request.options.secondIsDefault;
    if (wanted.request.text != request.text || wanted.request.caption != request.caption ||
        wanted.request.options.icon != request.options.icon ||
        wanted.request.options.buttons != request.options.buttons || !sameDefault) {
        Fail("Expected " + Describe(wanted.request) + "\n but got " + Describe(request));
    } else if (!IsAnswerOf(request, wanted.answer)) {
        Fail("There is no such button to answer " + Describe(request));
    }
}

void HeadlessPumps::RunModal(Form& form) {
    if (!form.IsVisible()) {
        return;
    }
    const Waiting open(*this, Wait::Modal);
    const std::string name = form.name;
    const auto pin = form.shared_from_this();
    const auto* next = Next<ExpectedModal>();
    if (next != nullptr && next->matches(form)) {
        TakeNext<ExpectedModal>()->script(form);  // NOLINT(bugprone-unchecked-optional-access)
        if (IsOpen(form)) {
            Fail("The script for modal " + name + " has ended and the form is still open.");
        }
    } else if (!HasExpectations() && improvise.modal) {
        improvise.modal(form);
    } else {
        FailUnexpected("modal " + name);
    }
    ForceClosed(form);
}

Menu* HeadlessPumps::ShowPopupMenu(Form& form, Menu& menu) {
    const Waiting open(*this, Wait::Popup);
    Popup popup{menu.name, {}};
    for (const Menu* entry : menu.entries) {
        if (entry->visible) {
            popup.captions.push_back(entry->caption);
        }
    }
    popups.push_back(popup);
    const auto pin = form.shared_from_this();
    Menu* chosen = nullptr;
    if (const auto wanted = TakeNext<ExpectedPopup>()) {
        chosen = ChosenEntry(*wanted, menu);
    } else if (!HasExpectations() && improvise.popup) {
        chosen = improvise.popup(menu);
    } else {
        FailUnexpected("pop-up menu " + popup.name);
    }
    return Runtime::Current().HasEnded() || !form.IsLoaded() ? nullptr : chosen;
}

Menu* HeadlessPumps::ChosenEntry(const ExpectedPopup& wanted, Menu& menu) const {
    if (wanted.menuName != menu.name) {
        Fail("Expected pop-up menu " + wanted.menuName + ", got " + menu.name);
        return nullptr;
    }
    const bool isByName = !wanted.script && !wanted.entry.empty();
    Menu* chosen = wanted.script ? wanted.script(menu)
                   : isByName    ? FindEntry(menu, wanted.entry)
                                 : nullptr;
    if (chosen == nullptr) {
        if (isByName) {
            Fail("Pop-up menu " + wanted.menuName + " has no entry " + wanted.entry);
        }
        return nullptr;
    }
    const std::string why = ReasonNotChoosable(*chosen, &menu);
    if (!why.empty()) {
        Fail("Entry " + std::string(chosen->name) + " of pop-up menu " + wanted.menuName + " " +
             why);
        return nullptr;
    }
    return chosen;
}

std::optional<std::string> HeadlessPumps::ShowOpenDialog(Form& form,
                                                         const FileDialogRequest& request) {
    const Waiting open(*this, Wait::OpenDialog);
    dialogs.push_back(request);
    const auto pin = form.shared_from_this();
    if (const auto wanted = TakeNext<ExpectedDialog>()) {
        if (wanted->during) {
            wanted->during();
        }
        return wanted->result;
    }
    if (!HasExpectations() && improvise.openDialog) {
        return improvise.openDialog(request);
    }
    FailUnexpected("dialog for opening a file");
    return std::nullopt;
}

void HeadlessPumps::RunFor(int /*milliseconds*/) {
    if (duringPause) {
        duringPause();
    }
}

void HeadlessPumps::RunMainLoop() {
    const Waiting open(*this, Wait::MainLoop);
    const auto wanted = TakeNext<ExpectedMainLoop>();
    if (!wanted) {
        FailUnexpected("main loop");
        return;
    }
    wanted->script();
    if (!Runtime::Current().HasEnded() && !Runtime::Current().LoadedForms().empty()) {
        Fail("The script for the main loop has ended and the program still runs.");
    }
}

}  // namespace forms::headless
