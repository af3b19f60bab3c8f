#include "alarms/Bell.h"
#include "alarms/CuckooClock.h"
#include "alarms/NoteAlarmsCheck.h"
#include "alarms/SpecialAlarmsCheck.h"
#include "app/frmMain.h"
#include "forms/Services.h"

// The main window's two clocks: alarms and the cuckoo.

void frmMain::tmrNow_Timer() {
    Bell::ClearAlarmSounding();
    // All checks use the same second, even if opening windows takes longer.
    const base::DateTime now = forms::Now();
    const NoteAlarmsCheck::Opened opened = NoteAlarmsCheck::DisplayDue(now);
    SpecialAlarmsCheck::RingDue(now);
    NoteAlarmsCheck::StartSound(opened);
}

void frmMain::StartCuckooClock() {
    tmrCooKoo.enabled = true;
    cmdCookoo.caption = "Stop CooKoo &Clock";
    lblCooKoo.visible = true;
    cmdCookoo.toolTip = "Stop the Cookoo Clock";
}

void frmMain::cmdCookoo_Click() {
    if (cmdCookoo.caption() == "Start CooKoo &Clock") {
        StartCuckooClock();
        return;
    }
    tmrCooKoo.enabled = false;
    cmdCookoo.caption = "Start CooKoo &Clock";
    lblCooKoo.visible = false;
    cmdCookoo.toolTip = "Start the Cookoo Clock";
}

void frmMain::tmrCooKoo_Timer() {
    const int strikes = CuckooClock::StrikesDue(forms::Now());
    if (strikes > 0) {
        StrikeCuckoo(strikes);
    }
}

void frmMain::StrikeCuckoo(int count) {
    CuckooClock::Strike(count);
    struck = true;
    tmrCooKoo.enabled = false;
    // The interval of the clock starts again after the strikes.
    if (lblCooKoo.visible) {
        tmrCooKoo.enabled = true;
    }
}
