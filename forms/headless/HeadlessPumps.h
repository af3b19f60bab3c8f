#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "forms/Stage.h"
#include "forms/headless/Expectations.h"
#include "forms/headless/VirtualClock.h"

namespace forms::headless {

// The part of the headless stage that waits for the user. A script gives the user's answers. If the
// program opens a box, modal form, pop-up menu or dialog that the script does not expect, the test
// fails and the stage closes the window or menu.
class HeadlessPumps : public Stage, public Expectations {
  public:
    explicit HeadlessPumps(VirtualClock& stageClock) : clock(stageClock) {}

    VirtualClock& clock;

    // Acts as the user while the program handles events for a short time (RunFor). No time passes
    // there unless this function moves the clock.
    std::function<void()> duringPause;

    // Answers to boxes, modal forms, menus and dialogs that a test cannot predict. They are used
    // while no expectation is left.
    struct Improvisation {
        std::function<BoxResult(const BoxRequest&)> box;
        std::function<void(Form&)> modal;
        std::function<Menu*(Menu&)> popup;
        std::function<std::optional<std::string>(const FileDialogRequest&)> openDialog;
    } improvise;

    // A pop-up menu that was shown.
    struct Popup {
        std::string name;
        std::vector<std::string> captions;  // visible entries of the first level, in order
    };
    // These functions return everything that was shown so far.
    const std::vector<BoxRequest>& Boxes() const { return boxes; }
    const std::vector<Popup>& Popups() const { return popups; }
    const std::vector<FileDialogRequest>& OpenDialogs() const { return dialogs; }
    // Empties the three lists, so that long tests do not use more and more memory.
    void ForgetShown();

    // The reason why the user cannot use the windows now, for example "a message box is open".
    // Empty if the user can use them.
    std::string ReasonForBlocking() const;
    // The number of boxes, modal forms, menus, dialogs and main loops that are open inside each
    // other.
    std::size_t OpenWaits() const { return waits.size(); }

    BoxResult ShowMessageBox(const BoxRequest& request) override;
    void RunModal(Form& form) override;
    Menu* ShowPopupMenu(Form& form, Menu& menu) override;
    std::optional<std::string> ShowOpenDialog(Form& form,
                                              const FileDialogRequest& request) override;
    void RunMainLoop() override;
    void RunFor(int milliseconds) override;

  private:
    enum class Wait { Box, Modal, Popup, OpenDialog, MainLoop };
    class Waiting;

    void CompareBox(const ExpectedBox& wanted, const BoxRequest& request) const;
    Menu* ChosenEntry(const ExpectedPopup& wanted, Menu& menu) const;
    void CountWait();

    std::vector<Wait> waits;
    std::vector<BoxRequest> boxes;
    std::vector<Popup> popups;
    std::vector<FileDialogRequest> dialogs;
    std::int64_t momentOfLastWait = -1;
    int waitsInMoment = 0;
};

}  // namespace forms::headless
