#pragma once

#include "forms/Form.h"

// Offers to stop the current alarm. The button switches off the main window's timer that checks the
// sound file. The window is loaded hidden at start-up. Unused, but kept on purpose: see
// docs/decisions/kept-unreachable.md.
class frmKillAlarm : public forms::Form {
  public:
    frmKillAlarm() : Form("frmKillAlarm") {}

    forms::Label lblQuestion{this, "lblQuestion"};
    forms::CommandButton Command1{this, "Command1"};

    void Design() override;
    void Form_Load() override;

  private:
    void Command1_Click();
};
