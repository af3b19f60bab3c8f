#pragma once

#include "forms/Form.h"

// Asks whether to erase a message. The answer is in Shared().Answer: 2 yes, 1 no. Unused, but kept
// on purpose: see docs/decisions/kept-unreachable.md.
class dlgInput : public forms::Form {
  public:
    dlgInput() : Form("dlgInput") {}

    forms::Label lblMsg{this, "lblMsg"};
    forms::CommandButton cmdYes{this, "cmdYes"};
    forms::CommandButton cmdNo{this, "cmdNo"};

    void Design() override;

  private:
    void cmdYes_Click();
    void cmdNo_Click();
};
