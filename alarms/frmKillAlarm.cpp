#include "alarms/frmKillAlarm.h"

#include "app/Grid.h"
#include "app/StandardCode.h"
#include "forms/Services.h"

void frmKillAlarm::Design() {
    caption = "Jotwright Alarm";
    centerOnScreen = true;
    innerWidth = 4560;
    innerHeight = 1170;

    lblQuestion.caption = "Would you like to stop the current alarm?";
    lblQuestion.alignment = forms::Alignment::Center;
    lblQuestion.Place(Grid::margin, Grid::margin, 4200, Grid::lineHeight);
    Command1.caption = "&Stop Alarm";
    Command1.isDefault = true;
    Command1.Place(1650, 615, Grid::buttonWidth, Grid::buttonHeight);
    Command1.Click = [this] { Command1_Click(); };
}

void frmKillAlarm::Form_Load() { icon = forms::LoadPicture(forms::ApplicationPath("\\logo.ico")); }

void frmKillAlarm::Command1_Click() { StandardCode::Signals().StopSoundCheck.Raise(); }
