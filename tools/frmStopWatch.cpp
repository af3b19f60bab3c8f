#include "tools/frmStopWatch.h"

#include <cstdint>
#include <cstdlib>
#include <string>

#include "app/Grid.h"
#include "base/Text.h"
#include "forms/Devices.h"
#include "forms/Services.h"

void frmStopWatch::Design() {
    caption = "Novelty Stop Watch";
    innerWidth = 5760;
    innerHeight = 4545;

    lblMessage.caption = "Elapsed Time";
    lblMessage.alignment = forms::Alignment::Center;
    lblMessage.Place(Grid::margin, Grid::margin, 5400, Grid::lineHeight);
    lblTime.caption = "00:00:00";
    lblTime.alignment = forms::Alignment::Center;
    lblTime.fontSize = 20;
    lblTime.bold = true;
    lblTime.Place(Grid::margin, 465, 5400, 600);
    lblTrys.caption = "Total Watch Starts: 0";
    lblTrys.Place(Grid::margin, 1680, 5400, Grid::lineHeight);

    cmdStart.caption = "&Start";
    cmdStart.Place(Grid::margin, 1185, Grid::buttonWidth, Grid::buttonHeight);
    cmdStart.Click = [this] { cmdStart_Click(); };
    cmdStop.caption = "S&top";
    cmdStop.enabled = false;
    cmdStop.Place(1560, 1185, Grid::buttonWidth, Grid::buttonHeight);
    cmdStop.Click = [this] { cmdStop_Click(); };
    cmdSave.caption = "Sa&ve";
    cmdSave.toolTip = "Click To Save The Current Time";
    cmdSave.enabled = false;
    cmdSave.Place(2940, 1185, Grid::buttonWidth, Grid::buttonHeight);
    cmdSave.Click = [this] { cmdSave_Click(); };
    cmdClose.caption = "&Close";
    cmdClose.isCancel = true;
    cmdClose.Place(4320, 1185, Grid::buttonWidth, Grid::buttonHeight);
    cmdClose.Click = [this] { cmdClose_Click(); };

    lvwTime.columns = {{" ", 480, "image"}, {"Run", 2010, "run"}, {"Ending Time", 2550, "time"}};
    ilsTime.images = {{"run", "run"}};
    lvwTime.imageList = &ilsTime;
    lvwTime.accessibleName = "Saved times";
    lvwTime.Place(Grid::margin, 1995, 5400, 2370);

    mnuFileSave.Click = [this] { mnuFileSave_Click(); };
    mnuClearSavedTimes.Click = [this] { mnuClearSavedTimes_Click(); };
    mnuExit.Click = [this] { mnuExit_Click(); };

    tmrMain.interval = 1000;
    tmrMain.Tick = [this] { tmrMain_Timer(); };
}

void frmStopWatch::Form_Load() {
    mnuFileSave.enabled = false;
    TimeSaved = false;
    icon = forms::LoadPicture(forms::ApplicationPath("\\logo.ico"));
    lblTime.caption = "00:00:00";
}

void frmStopWatch::StopTimer() { tmrMain.enabled = false; }

void frmStopWatch::ShowSaveCount() {
    lblTrys.caption = "Total Watch Starts: " + std::to_string(SaveCount);
}

void frmStopWatch::cmdStart_Click() {
    lblTime.caption = "00:00:00";
    tmrMain.enabled = true;
    StartTime = forms::Now();
    cmdStop.enabled = true;
    cmdStart.enabled = false;
    // A run can be saved only after it has been stopped.
    cmdSave.enabled = false;
    mnuFileSave.enabled = false;
}

void frmStopWatch::cmdStop_Click() {
    StopTimer();
    cmdStop.enabled = false;
    cmdStart.enabled = true;
    cmdSave.enabled = true;
    mnuFileSave.enabled = true;
}

forms::ShortcutTarget frmStopWatch::TargetOf(forms::Shortcut key) {
    return key == forms::Shortcut::ControlS ? forms::ShortcutTarget(&cmdSave)
                                            : forms::ShortcutTarget();
}

void frmStopWatch::cmdSave_Click() {
    SaveCount = base::CheckedAdd(SaveCount, 1);
    forms::ListView::Row row{.key = "", .image = ilsTime.IndexOf("run"), .texts = {}};
    lvwTime.SetText(row, "run", "   #" + std::to_string(SaveCount));
    lvwTime.SetText(row, "time", lblTime.caption);
    lvwTime.InsertRow(0, row);
    ShowSaveCount();
    TimeSaved = true;
    if (cmdSave.HasFocus()) {
        // Otherwise, disabling Save would move the focus to Close.
        cmdStart.SetFocus();
    }
    cmdSave.enabled = false;
    mnuFileSave.enabled = false;
}

void frmStopWatch::cmdClose_Click() { Unload(); }

void frmStopWatch::tmrMain_Timer() {
    // If the wall clock has been set back to before the start, the difference is negative. Show its
    // absolute value.
    const std::int64_t elapsed = std::abs(forms::Now().seconds - StartTime.seconds);
    lblTime.caption = base::FormatTime24(base::DateTime{elapsed});
}

void frmStopWatch::mnuFileSave_Click() { cmdSave_Click(); }

void frmStopWatch::mnuClearSavedTimes_Click() {
    lvwTime.Clear();
    SaveCount = 0;
    ShowSaveCount();
}

void frmStopWatch::mnuExit_Click() { cmdClose_Click(); }
