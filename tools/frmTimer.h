#pragma once

#include <cstdint>
#include <string>

#include "forms/Form.h"

// A kitchen timer: counts whole minutes down, then plays a chime and shows a message.
class frmTimer : public forms::Form {
  public:
    frmTimer() : Form("frmTimer") {}

    forms::Frame fraTimeLeft{this, "fraTimeLeft"};
    forms::Label lblTime{this, "lblTime"};
    forms::Label lblInst{this, "lblInst"};
    forms::TextBox txtMinutes{this, "txtMinutes"};
    forms::CommandButton cmdStart{this, "cmdStart"};
    forms::CommandButton cmdStop{this, "cmdStop"};
    forms::CommandButton cmdClose{this, "cmdClose"};

    forms::Timer tmrMain{this, "tmrMain"};

    // The counters live as long as the window. Start and Stop do not reset the last two, so a run
    // after Stop continues where the last run stopped. RuntimeError 6 if a counter leaves its
    // range.
    std::int16_t TotalMinutes = 0;    // as entered
    std::int16_t ElapsedMinutes = 0;  // whole minutes counted; back to 0 when the time is up
    std::int16_t SecondsCount = 0;    // in the current minute; back to 0 at 60

    void Design() override;
    void Form_Load() override;

  private:
    void ShowTimeLeft(int minutes, const std::string& rest);
    std::int16_t MinutesLeft() const;
    void TimeIsUp();

    void cmdStart_Click();
    void cmdStop_Click();
    void cmdClose_Click();
    void tmrMain_Timer();
};
