#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "forms/Form.h"

// Tips, one at a time. Shown modally at start-up, unless the user does not want them, and from the
// main window's menus. The check box always opens with the setting as it was at start-up
// (ViewTipsFlag), whatever was saved since.
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
