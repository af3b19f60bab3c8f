#pragma once

#include <cstdint>

#include "forms/Form.h"

// The first window. The start-up routine switches its timer on. On the second tick the window
// finishes the start-up: it opens the main window, loads the hidden windows, closes itself and
// shows the tips.
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
    // Shows the tips, unless the user has switched them off, and returns when they are closed.
    void ShowTips();

    std::int16_t TickCount = 0;
};
