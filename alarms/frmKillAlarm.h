#pragma once

#include "forms/Form.h"

// Asks whether the current alarm is to stop; the button switches off the main window's check of the
// sound file. Loaded hidden at start-up.
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
