#include "alarms/DueRules.h"
#include "alarms/SpecialAlarmsFile.h"
#include "alarms/StrikeTable.h"
#include "app/StandardCode.h"
#include "app/frmMain.h"
#include "forms/MsgBox.h"
#include "notes/NoteStore.h"
#include "notes/frmDisplayNote.h"
#include "notes/frmNote.h"

// The main window's clock: saved notes, weekly alarms, the cuckoo.

using StandardCode::Shared;

void frmMain::tmrNow_Timer() {
    // A looping sound that waits for its box keeps the others silent until it is answered.
    if (Shared().DisplaySoundsWaiting == 0) {
        Shared().AlarmSounding = false;
    }
    Shared().SoundRequested = false;
    const forms::DateTime now = forms::Now();
    const int dueCount = CheckNoteAlarms(now);
    CheckSpecialAlarms(now);
    StartRequestedSound(dueCount);
}

int frmMain::CheckNoteAlarms(forms::DateTime now) {
    int dueCount = 0;
    const auto& notes = Shared().NotesArray;
    for (int slot = 1; slot <= StandardCode::maximumNotes; ++slot) {
        if (notes[slot].Title.empty()) {
            break;
        }
        // An open editor rings its own alarm.
        if (DueRules::IsSavedNoteDue(notes[slot], now) &&
            StandardCode::Notes().FindOpen(StandardCode::Notes().OfSlot(slot).file) == nullptr) {
            StandardCode::DisplayNote(slot);
            ++dueCount;
        }
    }
    return dueCount;
}

void frmMain::CheckSpecialAlarms(forms::DateTime now) {
    for (std::size_t row = 0; row < Shared().SpecialAlarmDay.size(); ++row) {
        if (!SpecialAlarmsFile::IsDue(SpecialAlarmsFile::SharedRow(row), now)) {
            continue;
        }
        std::string& message = Shared().SpecialAlarmMessage[row];
        if (message.empty()) {
            message = "No Special Message";
        }
        // The cuckoo's own timer goes on while the message waits: it would end the alarm's sound.
        Shared().AlarmSounding = true;
        forms::Machine().sound->Play(Shared().AlarmSoundPath, forms::Sound::Mode::Loop);
        forms::MsgBox(
            "Message for " + Shared().SpecialAlarmDay[row] + "               \r\n\r\n" + message,
            {.icon = forms::BoxIcon::Information}, "Jotwright Daily Alarm");
        forms::Machine().sound->Stop();
        Shared().AlarmSounding = true;
    }
}

bool frmMain::IsSpecialAlarmDue(forms::DateTime now) {
    for (std::size_t row = 0; row < Shared().SpecialAlarmDay.size(); ++row) {
        if (SpecialAlarmsFile::IsDue(SpecialAlarmsFile::SharedRow(row), now)) {
            return true;
        }
    }
    return false;
}

void frmMain::StartRequestedSound(int dueCount) {
    if (Shared().AlarmSounding || dueCount == 0 || !Shared().SoundRequested) {
        return;
    }
    if (const auto display = StandardCode::LastDisplay()) {
        display->tmrSoundAlarm.enabled = true;
        Shared().AlarmSounding = true;
    }
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
    // The flag is cleared every second; a note rings until its box is answered.
    if (Shared().AlarmSounding || StandardCode::IsNoteRinging()) {
        return;
    }
    const forms::DateTime now = forms::Now();
    const int strikes = StrikeTable::StrikesAt(now.TimeOnly());
    // Of two timers that are due together either may come first, and while the cuckoo strikes the
    // main clock would wait.
    if (strikes > 0 && !IsSpecialAlarmDue(now)) {
        StrikeCuckoo(strikes);
    }
}

void frmMain::StrikeCuckoo(int count) {
    for (int strike = 0; strike < count; ++strike) {
        forms::Machine().sound->PlayToEnd(forms::ApplicationPath("\\Cuckoo clock.wav"));
    }
    struck = true;
    tmrCooKoo.enabled = false;
    // Restarts the clock's own second after the strikes.
    if (lblCooKoo.visible) {
        tmrCooKoo.enabled = true;
    }
}
