#pragma once

#include "forms/Form.h"

// The About box; shown modally.
class frmAbout : public forms::Form {
  public:
    frmAbout() : Form("frmAbout") {}

    forms::Label lblAbout{this, "lblAbout"};
    forms::Label lblVersion{this, "lblVersion"};
    forms::TextBox txtAbout{this, "txtAbout"};
    forms::CommandButton cmdCancel{this, "cmdCancel"};

    void Design() override;
    void Form_Load() override;

  private:
    void cmdCancel_Click();
};
