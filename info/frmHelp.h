#pragma once

#include "forms/Form.h"

// One page of help. Unused, but kept on purpose: see docs/decisions/kept-unreachable.md.
class frmHelp : public forms::Form {
  public:
    frmHelp() : Form("frmHelp") {}

    forms::Label lblHelp{this, "lblHelp"};
    forms::CommandButton cmdClose{this, "cmdClose"};

    void Design() override;
    void Form_Load() override;

  private:
    void cmdClose_Click();
};
