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

// The part of the headless stage that waits for the user: a script answers. A box, modal form,
// pop-up menu or dialog that the script does not expect fails the test and is closed.
class HeadlessPumps : public Stage, public Expectations {
  public:
    explicit HeadlessPumps(VirtualClock& stageClock) : clock(stageClock) {}

    VirtualClock& clock;

    // Answers when the script is empty, for tests with unpredictable boxes.
    struct Improvisation {
        std::function<BoxResult(const BoxRequest&)> box;
        std::function<void(Form&)> modal;
        std::function<Menu*(Menu&)> popup;
        std::function<std::optional<std::string>(const FileDialogRequest&)> openDialog;
    } improvise;

    // Everything that was shown so far.
    struct Popup {
        std::string name;
        std::vector<std::string> captions;  // visible entries of the first level, in order
    };
    const std::vector<BoxRequest>& Boxes() const { return boxes; }
    const std::vector<Popup>& Popups() const { return popups; }
    const std::vector<FileDialogRequest>& OpenDialogs() const { return dialogs; }
    // Empties the three lists, so that long tests do not grow.
    void ForgetShown();

    // Why the user cannot reach the windows now ("a message box is open"); empty if the user can.
    std::string WhatIsInTheWay() const;
    // How many boxes, modal forms, menus and dialogs are open inside each other.
    std::size_t OpenWaits() const { return waits.size(); }

    BoxResult ShowMessageBox(const BoxRequest& request) override;
    void RunModal(Form& form) override;
    Menu* ShowPopupMenu(Form& form, Menu& menu) override;
    std::optional<std::string> ShowOpenDialog(Form& form,
                                              const FileDialogRequest& request) override;
    void RunMainLoop() override;

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
