#pragma once

#include <cstdint>

#include "forms/Form.h"

// The first window. Its timer, which the start-up routine switches on, finishes the start-up on its
// second tick: it opens the main window, loads the hidden windows, closes the splash and shows the
// tips.
class frmSplash : public forms::Form {
  public:
    frmSplash() : Form("frmSplash") {}

    forms::Image imgLogo{this, "imgLogo"};
    forms::Label lblLogo{this, "lblLogo"};
    forms::Label lblCopyright{this, "lblCopyright"};
    forms::Timer tmrSplash{this, "tmrSplash"};

    void Design() override;
    void Form_Load() override;

  private:
    void tmrSplash_Timer();
    // Returns when the user has closed the tips, where they are shown.
    void ShowTips();

    std::int16_t TickCount = 0;
};
