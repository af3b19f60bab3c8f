#pragma once

#include <cstdint>

#include "base/DateTime.h"
#include "forms/Form.h"

// A stop watch with a list of the runs that the user saved. Closing the window discards the list.
class frmStopWatch : public forms::Form {
  public:
    frmStopWatch() : Form("frmStopWatch") {}

    forms::Label lblMessage{this, "lblMessage"};
    forms::Label lblTime{this, "lblTime"};
    forms::Label lblTrys{this, "lblTrys"};
    forms::CommandButton cmdStart{this, "cmdStart"};
    forms::CommandButton cmdStop{this, "cmdStop"};
    forms::CommandButton cmdSave{this, "cmdSave"};
    forms::CommandButton cmdClose{this, "cmdClose"};
    forms::ImageList ilsTime{this, "ilsTime"};
    forms::ListView lvwTime{this, "lvwTime"};

    forms::Timer tmrMain{this, "tmrMain"};

    forms::Menu mnuFile{this, "mnuFile", "&File"};
    forms::Menu mnuFileSave{this, mnuFile, "mnuFileSave", "&Save Current Time"};
    forms::Menu mnuClearSavedTimes{this, mnuFile, "mnuClearSavedTimes", "&Clear Saved Times"};
    forms::Menu sepFile{this, mnuFile, "sepFile", "-"};
    forms::Menu mnuExit{this, mnuFile, "mnuExit", "E&xit"};

    base::DateTime StartTime;    // of the current run, by the wall clock
    bool TimeSaved = false;      // whether a run was saved since the window was loaded
    std::int16_t SaveCount = 0;  // runs saved since the window was loaded or the list was cleared

    void Design() override;
    void Form_Load() override;
    forms::ShortcutTarget TargetOf(forms::Shortcut key) override;

  private:
    void StopTimer();
    void ShowSaveCount();

    void cmdStart_Click();
    void cmdStop_Click();
    void cmdSave_Click();
    void cmdClose_Click();
    void tmrMain_Timer();
    void mnuFileSave_Click();
    void mnuClearSavedTimes_Click();
    void mnuExit_Click();
};
