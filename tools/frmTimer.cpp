#include "tools/frmTimer.h"

#include "alarms/Bell.h"
#include "app/Grid.h"
#include "base/Text.h"
#include "forms/Devices.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"

void frmTimer::Design() {
    caption = "Novelty Timer";
    innerWidth = 4380;
    innerHeight = 2865;

    fraTimeLeft.accessibleName = "Time Left";
    fraTimeLeft.Place(Grid::margin, Grid::margin, 4020, 1485);
    lblTime.fontSize = 12;
    lblTime.PlaceIn(fraTimeLeft, Grid::frameSide, 315, 3660, 990);
    lblTime.alignment = forms::Alignment::Center;

    lblInst.caption = "Enter Time In Total Minutes";
    lblInst.Place(Grid::margin, 1785 + Grid::labelInField, 2640, Grid::lineHeight);
    txtMinutes.accessibleName = "Enter Time In Total Minutes";
    txtMinutes.Place(2940, 1785, Grid::buttonWidth, Grid::fieldHeight);

    cmdStart.caption = "&Start Timer";
    cmdStart.isDefault = true;
    cmdStart.Place(Grid::margin, 2310, Grid::buttonWidth, Grid::buttonHeight);
    cmdStart.Click = [this] { cmdStart_Click(); };
    cmdStop.caption = "&Stop Timer";
    cmdStop.enabled = false;
    cmdStop.Place(1560, 2310, Grid::buttonWidth, Grid::buttonHeight);
    cmdStop.Click = [this] { cmdStop_Click(); };
    cmdClose.caption = "&Close";
    cmdClose.isCancel = true;
    cmdClose.Place(2940, 2310, Grid::buttonWidth, Grid::buttonHeight);
    cmdClose.Click = [this] { cmdClose_Click(); };
    txtMinutes.tabIndex = 0;

    tmrMain.interval = 1000;
    tmrMain.Tick = [this] { tmrMain_Timer(); };
}

void frmTimer::Form_Load() {
    icon = forms::LoadPicture(forms::ApplicationPath("\\logo.ico"));
    ShowTimeLeft(0, " Minutes\r\n0 Seconds");
}

void frmTimer::ShowTimeLeft(int minutes, const std::string& rest) {
    lblTime.caption = "Time Left:\r\n" + std::to_string(minutes) + rest;
}

std::int16_t frmTimer::MinutesLeft() const {
    return base::CheckedAdd(TotalMinutes, -1 - ElapsedMinutes);
}

void frmTimer::cmdStart_Click() {
    if (txtMinutes.text().empty()) {
        forms::MsgBox("Please Enter A Start Time.               ",
                      {.icon = forms::BoxIcon::Exclamation}, "No Minutes Entered");
        txtMinutes.SetFocus();
        return;
    }
    if (!forms::IsNumeric(txtMinutes.text())) {
        forms::MsgBox("Please Enter Numeric Values Only.         ",
                      {.icon = forms::BoxIcon::Exclamation}, "Non-Numeric Entry");
        txtMinutes.text = "";
        txtMinutes.SetFocus();
        return;
    }
    TotalMinutes = forms::ToInteger16(txtMinutes.text());
    txtMinutes.text = std::to_string(TotalMinutes);

    ShowTimeLeft(TotalMinutes, " minutes\r\n0 seconds");
    txtMinutes.enabled = false;
    cmdStart.enabled = false;
    cmdStop.enabled = true;
    tmrMain.interval = 1000;
    tmrMain.enabled = true;
}

void frmTimer::cmdStop_Click() {
    tmrMain.enabled = false;
    cmdStart.enabled = true;
    cmdStop.enabled = false;
    txtMinutes.enabled = true;
    txtMinutes.text = "";
    txtMinutes.SetFocus();
    ShowTimeLeft(0, " Minutes\r\n0 Seconds");
}

void frmTimer::cmdClose_Click() { Unload(); }

void frmTimer::tmrMain_Timer() {
    ++SecondsCount;
    if (SecondsCount < 1) {
        ShowTimeLeft(TotalMinutes, " Minutes\r\n00 Seconds");
    } else {
        ShowTimeLeft(MinutesLeft(),
                     " Minutes\r\n" + std::to_string(60 - SecondsCount) + " Seconds");
    }
    if (SecondsCount == 60) {
        ElapsedMinutes = base::CheckedAdd(ElapsedMinutes, 1);
        ShowTimeLeft(MinutesLeft(), " Minutes\r\n0 Seconds.");
        SecondsCount = 0;
    }
    if (ElapsedMinutes == TotalMinutes) {
        TimeIsUp();
    }
}

void frmTimer::TimeIsUp() {
    Bell::RingBehindBox(forms::ApplicationPath("\\Alert chime.wav"), "          Time Is Up        ",
                        {.icon = forms::BoxIcon::Critical}, "Jotwright Audio Alarm");
    cmdStop_Click();
    tmrMain.enabled = false;
    lblTime.caption = "Time Left: 0 minutes 0 seconds.";
    ElapsedMinutes = 0;
}
