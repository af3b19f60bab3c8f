#include <algorithm>
#include <functional>

#include "alarms/Bell.h"
#include "forms/Application.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"
#include "notes/NoteStore.h"
#include "notes/frmNote.h"

// The editor's alarm: set, cleared, due.

using StandardCode::Shared;

namespace {

// The caption of the button is the alarm's state.
constexpr const char* setAlarm = "&Set Alarm";
constexpr const char* turnOffAlarm = "&Turn Off Alarm";

// Looks at every second of the day at least once.
constexpr int dueTestInterval = 600;

forms::Picture NoteIcon() { return forms::LoadPicture(forms::ApplicationPath("\\note.ico")); }

void ShowInformation(const std::string& text) {
    forms::MsgBox(text, {.icon = forms::BoxIcon::Information}, "Information");
}

}  // namespace

forms::Picture frmNote::AlarmIcon() {
    return forms::LoadPicture(forms::ApplicationPath("\\alarmon.ico"));
}

bool frmNote::IsAlarmSet() const { return cmdAlarm.caption() == turnOffAlarm; }

void frmNote::ComputeAlarmValues() {
    const std::pair<base::DateTime, base::DateTime> picked{dtDate.value, dtTime.value};
    if (alarmValuesOf != picked) {
        alarmValues = DueRules::ValuesOf(picked.first, picked.second);
        alarmValuesOf = picked;
    }
}

void frmNote::chkAudioAlarm_Click() { imgBell.visible = chkAudioAlarm.value() == 1; }

void frmNote::cmdAlarm_Click() {
    icon = AlarmIcon();
    if (cmdAlarm.caption() == setAlarm) {
        SetAlarm();
    } else {
        ClearAlarm();
    }
    NoteChanged = true;
}

void frmNote::mnuAlarmStart_Click() {
    if (cmdAlarm.caption() == setAlarm) {
        cmdAlarm_Click();
        NoteChanged = true;
    } else {
        ShowInformation("    Alarm Already Started     ");
    }
}

void frmNote::mnuAlarmStop_Click() {
    if (IsAlarmSet()) {
        cmdAlarm_Click();
        NoteChanged = true;
    } else {
        ShowInformation("   Alarm Not Set              ");
    }
}

void frmNote::SetAlarm() {
    fraAlarm.caption = " Alarm Set ";
    ShowAlarmState(turnOffAlarm);
    tmrNote.enabled = true;
    tmrNote.interval = dueTestInterval;
    ComputeAlarmValues();
    RestUntilTheAlarm();
    ShowPickers(false);
    ShowCalendar(true);
    FillCalendar();
    EnablePickers(false);
}

void frmNote::ClearAlarm() {
    fraAlarm.caption = " Schedule Alarm ";
    icon = NoteIcon();
    tmrNote.enabled = false;
    ShowAlarmState(setAlarm);
    imgAlarm.visible = false;
    EnablePickers(true);
    ShowCalendar(false);
    ShowPickers(true);
}

void frmNote::PresentAlarm(const forms::Picture& alarmIcon) {
    icon = alarmIcon;
    ShowAlarmState(turnOffAlarm);
    tmrNote.enabled = true;
    tmrNote.interval = dueTestInterval;
    ShowCalendar(true);
    ShowPickers(false);
    EnablePickers(false);
    fraAlarm.caption = " Alarm Set ";
    imgAlarm.picture = alarmIcon;
    imgAlarm.visible = true;
    // The first tick of the clock may come after the alarm's own second.
    ComputeAlarmValues();
    RestUntilTheAlarm();
    FillCalendar();
}

void frmNote::FillCalendar() {
    const base::DateTime date = dtDate.value;
    const std::string month = base::EnglishMonthName(date.Month());
    if (!month.empty()) {
        lblCalMonth.caption = month;
    }
    lblDayYear.caption = std::to_string(date.Day()) + ", " + std::to_string(date.Year());
    lblClock.caption = forms::Machine().locale->TimeText(alarmValues.AlarmTimeOfDay);
}

void frmNote::RestUntilTheAlarm() {
    if (DueRules::MayRingSoon(alarmValues, forms::Now())) {
        tmrNote.Wake();
    } else {
        tmrNote.Rest();
    }
}

void frmNote::tmrNote_Timer() {
    if (DueRules::IsEditorAlarmDue(alarmValues, forms::Now())) {
        Fire();
    }
}

void frmNote::Fire() {
    mnuShow_Click();
    BringToForeground();
    ShowAlarmState(setAlarm);
    imgAlarm.visible = false;
    tmrNote.enabled = false;
    icon = NoteIcon();
    EnablePickers(true);
    ShowCalendar(false);
    ShowPickers(true);
    AcceptFiring();
    if (chkAudioAlarm.value() != 1) {
        return;
    }
    Bell::RingBehindBox(Shared().AlarmSoundPath, "           Turn Off Alarm?", {},
                        "Jotwright Audio Alarm");
    chkAudioAlarm.value = 0;
    AcceptFiring();
}

void frmNote::AcceptFiring() {
    hasRung = true;
    StandardCode::NoteRecord saved = edited.SavedRecord();
    saved.AlarmState = "0";
    saved.AudioAlarm = std::min(saved.AudioAlarm, AudioAlarm());
    edited.SetSavedRecord(saved);
}

// Goes by the default editor's alarm, which nobody sets: the clock stands still.
bool frmNote::IsBlinking() { return forms::Default<frmNote>().IsAlarmSet(); }

void frmNote::FollowBlinking() {
    const bool blinks = IsBlinking();
    if (blinks != static_cast<bool>(tmrLabel.Tick)) {
        tmrLabel.Tick = blinks ? [this] { tmrLabel_Timer(); } : std::function<void()>();
        tmrLabel.Changed(forms::Aspect::Enabled);
    }
}

void frmNote::ShowAlarmState(const char* buttonCaption) {
    cmdAlarm.caption = buttonCaption;
    if (this != &forms::Default<frmNote>()) {
        return;
    }
    FollowBlinking();
    for (const EditedNote* note : StandardCode::Notes().OpenNotes()) {
        static_cast<frmNote&>(note->Editor().Window()).FollowBlinking();
    }
}

void frmNote::tmrLabel_Timer() {
    if (!IsBlinking()) {
        return;
    }
    Shared().BlinkPhase = !Shared().BlinkPhase;
    lblClock.caption = Shared().BlinkPhase ? "****" : "";
}

void frmNote::ShowPickers(bool show) {
    lblTime.visible = show;
    lblDate.visible = show;
    dtDate.visible = show;
    dtTime.visible = show;
}

void frmNote::ShowCalendar(bool show) {
    shpMonth.visible = show;
    shpCalBody.visible = show;
    shpClock.visible = show;
    lblCalMonth.visible = show;
    lblDayYear.visible = show;
    lblClock.visible = show;
}

void frmNote::EnablePickers(bool enable) {
    dtDate.enabled = enable;
    dtTime.enabled = enable;
}
