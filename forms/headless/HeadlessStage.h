#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "forms/Stage.h"
#include "forms/headless/Expectations.h"
#include "forms/headless/VirtualClock.h"

namespace forms::headless {

// What the screen shows of a form.
struct HeadlessWindow : Form::StageData {
    bool shown = false;
    bool usable = true;
    WindowState state = WindowState::Normal;
    int timesShown = 0;  // from hidden to shown
};

// A stage without a screen: time is virtual, and the user is a script of ordered expectations. A
// box, modal form, pop-up menu or dialog that nobody expected fails the test and is answered as a
// user in a hurry would; one that was expected and never came fails it in Verify().
class HeadlessStage : public Stage {
  public:
    explicit HeadlessStage(VirtualClock& stageClock);
    // Verifies.
    ~HeadlessStage() override;

    // Hears each failure of the test. Without it a failure prints its text and aborts.
    std::function<void(const std::string&)> onFailure;

    // Time. Advance visits each tick on its way and may be called by any script below.
    void Advance(std::int64_t milliseconds) { clock.Advance(milliseconds); }
    // The wall clock is set forward or back; the system tells the program.
    void Jump(std::int64_t seconds, std::int64_t milliseconds = 0);
    // The machine sleeps: both clocks go on, no tick comes, and the system tells the program.
    void Suspend(std::int64_t seconds);

    // The next thing that opens is a message box with exactly these properties. The script runs
    // while it is open: time may pass and the tray icon be used, windows are out of reach.
    void ExpectBox(const std::string& text, const std::string& caption, BoxIcon icon,
                   BoxButtons buttons, BoxResult answer,
                   std::optional<BoxResult> defaultButton = std::nullopt, Script during = nullptr);
    void ExpectBox(const std::string& text, const std::string& caption, BoxIcon icon,
                   BoxButtons buttons, BoxResult answer, Script during);
    // A form of class T is shown modally. The script must get it hidden or unloaded, or the
    // program ended.
    template <class T>
    void ExpectModal(std::function<void(T&)> script) {
        Expect(ExpectedModal{
            typeid(T).name(), [](const Form& form) { return dynamic_cast<const T*>(&form); },
            [run = std::move(script)](Form& form) { run(dynamic_cast<T&>(form)); }});
    }
    // A pop-up menu with this name opens; the user chooses the entry (by name, else by caption).
    void ExpectPopup(const std::string& menuName, const std::string& entry);
    // The script answers what the user chooses, null for nothing.
    void ExpectPopup(const std::string& menuName, std::function<Menu*(Menu&)> script);
    void ExpectPopupDismissed(const std::string& menuName) { ExpectPopup(menuName, ""); }
    // The dialog for opening a file; without a result the user cancels.
    void ExpectOpenDialog(std::optional<std::string> result, Script during = nullptr);
    // Runtime::Run has done its start-up routine and waits; the script is the user's whole session
    // and must end the program or unload every form.
    void ExpectMainLoop(Script script);

    // Fails for each expectation that is left, and forgets it.
    void Verify();
    bool HasExpectations() const { return !expected.empty(); }

    // Answers where nothing is expected, for tests that cannot know what comes.
    struct Improvisation {
        std::function<BoxResult(const BoxRequest&)> box;
        std::function<void(Form&)> modal;
        std::function<Menu*(Menu&)> popup;
        std::function<std::optional<std::string>(const FileDialogRequest&)> openDialog;
    } improvise;

    // What was shown so far.
    struct Popup {
        std::string name;
        std::vector<std::string> captions;  // visible entries of the first level, in order
    };
    const std::vector<BoxRequest>& Boxes() const { return boxes; }
    const std::vector<Popup>& Popups() const { return popups; }
    const std::vector<FileDialogRequest>& OpenDialogs() const { return dialogs; }
    // Lets tests run for ever: the three lists begin anew.
    void ForgetShown();
    Form* Foreground() const { return foreground.lock().get(); }
    MousePointer Pointer() const { return pointer; }
    // Changes of properties that a real stage would have drawn.
    std::int64_t ChangesShown() const { return changesShown; }
    bool HasQuit() const { return quit; }

    // What keeps the user from the windows now ("a message box is open"); empty where nothing does.
    std::string WhatIsInTheWay() const;
    // How many boxes, modal forms, menus and dialogs are open inside each other.
    std::size_t OpenWaits() const { return waits.size(); }
    static HeadlessWindow& WindowOf(Form& form);
    void Fail(const std::string& message);

    VirtualClock& clock;

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
    BoxResult ShowMessageBox(const BoxRequest& request) override;
    void RunModal(Form& form) override;
    Menu* ShowPopupMenu(Form& form, Menu& menu) override;
    std::optional<std::string> ShowOpenDialog(Form& form,
                                              const FileDialogRequest& request) override;
    void RunMainLoop() override;
    void Quit() override { quit = true; }
    void ArmTimer(std::optional<std::int64_t> due) override { clock.Arm(due); }
    Size MeasureText(const Form& form, const std::string& text, int fontSize) override;
    Size InnerSize(const Form& form) override;
    Size FrameSize(const Form& form) override;
    void SetMousePointer(MousePointer newPointer) override { pointer = newPointer; }

    // The text that the user has typed and the program has not yet read (see User::Type).
    void KeepTyped(TextBox& textBox, const std::string& content);

  private:
    enum class Wait { Box, Modal, Popup, OpenDialog, MainLoop };
    class Waiting;

    void Expect(Expectation expectation) { expected.push_back(std::move(expectation)); }
    // The next expectation where it is of this kind, taken out of the row.
    template <class Expected>
    std::optional<Expected> TakeNext();
    std::string InsteadOf() const;
    void CompareBox(const ExpectedBox& wanted, const BoxRequest& request);
    void CountWait();
    void ForceClosed(Form& form);
    Menu* ChosenEntry(const ExpectedPopup& wanted, Menu& menu);

    std::deque<Expectation> expected;
    std::vector<Wait> waits;
    std::vector<BoxRequest> boxes;
    std::vector<Popup> popups;
    std::vector<FileDialogRequest> dialogs;
    std::vector<std::pair<TextBox*, std::string>> typed;
    std::weak_ptr<Form> foreground;
    MousePointer pointer = MousePointer::Default;
    std::int64_t changesShown = 0;
    std::int64_t momentOfLastWait = -1;
    int waitsInMoment = 0;
    bool quit = false;
};

}  // namespace forms::headless
