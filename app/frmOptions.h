#pragma once

#include <cstdint>
#include <string>

#include "forms/Form.h"

// The options: the defaults of new notes, and the settings of the program. No setting is written
// before the user clicks Apply.
class frmOptions : public forms::Form {
  public:
    frmOptions() : Form("frmOptions") {}

    forms::Frame fraGeneral{this, "fraGeneral"};
    forms::CheckBox chkNoteLoops{this, "chkNoteLoops"};
    forms::CheckBox chkShowDateTime{this, "chkShowDateTime"};
    forms::CheckBox chkCooKooOn{this, "chkCooKooOn"};
    forms::CheckBox chkIsService{this, "chkIsService"};
    forms::CheckBox chkShowOnTop{this, "chkShowOnTop"};
    forms::Frame fraFont{this, "fraFont"};
    forms::ControlArray<forms::OptionButton, 4> optDefaultFont{this, "optDefaultFont"};
    forms::Frame fraDefaultColor{this, "fraDefaultColor"};
    forms::ControlArray<forms::OptionButton, 6> optDefaultColor{this, "optDefaultColor"};
    forms::ControlArray<forms::Shape, 6> shpColor{this, "shpColor"};
    forms::CommandButton cmdApply{this, "cmdApply"};
    forms::CommandButton cmdCancel{this, "cmdCancel"};

    void Design() override;
    void Form_Load() override;

    // The version of the system as text: the major number and two digits of the minor number, for
    // example "5.01".
    std::string GetWinVersion() const;

  private:
    void DesignGeneral();
    void DesignFont();
    void DesignColor();
    void WriteSettings();

    void chkIsService_Click();
    void optDefaultFont_Click(int index);
    void optDefaultColor_Click(int index);
    void cmdApply_Click();
    void cmdCancel_Click();

    std::int16_t colorCode = 0;  // 0 to 5
    std::int16_t fontCode = 0;   // 0 to 3
    std::int16_t startWithWindows = 0;
    std::int16_t noteLoops = 0;
};
