#pragma once

#include <cstdint>

#include "forms/Form.h"

// The first window. The start-up routine switches its timer on. On the second tick it opens the
// main window, loads the hidden windows and hides itself. On the third tick it closes itself and
// shows the tips. A window manager of X11 gives the focus back only to a window that had it before,
// and it gives the focus only after the handler. So the main window needs the tick before the tips
// disable it.
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
    void OpenMainWindow();
    // Shows the tips, unless the user has switched them off, and returns when they are closed.
    void ShowTips();

    std::int16_t TickCount = 0;
};
