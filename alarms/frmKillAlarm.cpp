#include "alarms/frmKillAlarm.h"

#include "app/StandardCode.h"

void frmKillAlarm::Design() {
    caption = "Jotwright Alarm";
    centerOnScreen = true;
    width = 4530;
    height = 1665;

    lblQuestion.caption = "Would you like to stop the current alarm?";
    lblQuestion.alignment = forms::Alignment::Center;
    lblQuestion.Place(120, 180, 4200, 255);
    Command1.caption = "&Stop Alarm";
    Command1.isDefault = true;
    Command1.Place(1530, 630, 1380, 375);
    Command1.Click = [this] { Command1_Click(); };
}

void frmKillAlarm::Form_Load() {
    forms::Picture mainIcon;
    StandardCode::Events().MainIconWanted.Raise(mainIcon);
    icon = mainIcon;
}

void frmKillAlarm::Command1_Click() { StandardCode::Events().StopSoundCheck.Raise(); }
