#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "forms/Form.h"

// Shows one tip at a time. The window opens modally at start-up, unless the user has switched the
// tips off, and from the menus of the main window. The check box always shows the setting that was
// read at start-up (ViewTipsFlag), even if another value has been saved since.
class frmTip : public forms::Form {
  public:
    frmTip() : Form("frmTip") {}

    forms::Image Picture1{this, "Picture1"};
    forms::Label Label1{this, "Label1"};
    forms::Label lblTipText{this, "lblTipText"};
    forms::CheckBox chkShowTips{this, "chkShowTips"};
    forms::CommandButton cmdNextTip{this, "cmdNextTip"};
    forms::CommandButton cmdOK{this, "cmdOK"};

    void Design() override;
    void Form_Load() override;

  private:
    void FillTips();
    void ShowCurrentTip();
    void cmdNextTip_Click();
    void cmdOK_Click();

    std::array<std::string, 21> Tips;
    std::int16_t CurrentTip = 0;
};
