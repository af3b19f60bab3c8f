#include "notes/NoteAlarm.h"

#include <functional>
#include <initializer_list>
#include <string>

#include "alarms/Bell.h"
#include "app/Grid.h"
#include "app/StandardCode.h"
#include "base/DateTime.h"
#include "forms/Application.h"
#include "forms/Services.h"
#include "notes/NoteStore.h"
#include "notes/frmNote.h"

using StandardCode::Shared;

namespace {

constexpr const char* setAlarm = "&Set Alarm";
constexpr const char* turnOffAlarm = "&Turn Off Alarm";

// Milliseconds. The interval is short enough that no second of the day is missed.
constexpr int dueTestInterval = 600;

// Positions in the alarm frame.
constexpr int firstColumn = Grid::frameSide;
constexpr int dateWidth = 1740;
constexpr int secondColumn = firstColumn + dateWidth + Grid::gap;
constexpr int timeWidth = 1740;
constexpr int markerSize = 240;
constexpr int actionWidth = 2160;
constexpr int labelTop = Grid::frameTop;
constexpr int pickerTop = labelTop + Grid::lineHeight + Grid::smallGap;
constexpr int buttonTop = pickerTop - Grid::fieldInButton;

forms::Picture NoteIcon() { return forms::LoadPicture(forms::ApplicationPath("\\note.ico")); }

}  // namespace

void NoteAlarm::Design() {
    forms::Frame& frame = note.fraAlarm;
    frame.caption = "Schedule Alarm";
    note.lblDate.caption = "Select Alarm Date";
    note.lblDate.PlaceIn(frame, firstColumn, labelTop, dateWidth, Grid::lineHeight);
    note.dtDate.PlaceIn(frame, firstColumn, pickerTop, dateWidth, Grid::fieldHeight);
    note.lblTime.caption = "Select Alarm Time";
    note.lblTime.PlaceIn(frame, secondColumn, labelTop, timeWidth, Grid::lineHeight);
    note.dtTime.PlaceIn(frame, secondColumn, pickerTop, timeWidth, Grid::fieldHeight);

    note.shpCalBody.shape = forms::ShapeKind::Rectangle;
    note.shpCalBody.PlaceIn(frame, firstColumn, labelTop, dateWidth, 765);
    note.shpMonth.shape = forms::ShapeKind::Rectangle;
    note.shpMonth.fillColor = {255, 176, 160};
    note.shpMonth.PlaceIn(frame, firstColumn, labelTop, dateWidth, 315);
    note.lblCalMonth.PlaceIn(frame, firstColumn + 60, labelTop + 45, dateWidth - 120,
                             Grid::lineHeight);
    note.lblDayYear.fontSize = 10;
    note.lblDayYear.PlaceIn(frame, firstColumn + 60, labelTop + 390, dateWidth - 120, 285);
    note.shpClock.shape = forms::ShapeKind::RoundedRectangle;
    note.shpClock.PlaceIn(frame, secondColumn, labelTop + 150, timeWidth, 465);
    note.lblClock.fontSize = 10;
    note.lblClock.PlaceIn(frame, secondColumn + 60, labelTop + 240, timeWidth - 120, 285);
    for (forms::Label* label : {&note.lblCalMonth, &note.lblDayYear, &note.lblClock}) {
        label->alignment = forms::Alignment::Center;
        label->foreColor = forms::black;
    }

    note.chkAudioAlarm.caption = "Turn On Audio Alarm";
    note.chkAudioAlarm.PlaceIn(frame, 0, labelTop, actionWidth, Grid::lineHeight);
    note.imgBell.resourceName = "bell";
    note.imgBell.toolTip = "Audio Alarm Set";
    note.imgBell.accessibleName = "Audio Alarm Set";
    note.imgBell.visible = false;
    note.imgBell.PlaceIn(frame, 0, labelTop, markerSize, markerSize);
    note.cmdAlarm.PlaceIn(frame, 0, buttonTop, actionWidth, Grid::buttonHeight);
    note.imgAlarm.accessibleName = "Alarm Set";
    note.imgAlarm.PlaceIn(frame, 0, buttonTop + 60, markerSize, markerSize);
    Paint();
}

void NoteAlarm::Arrange() {
    const int actionLeft = note.fraAlarm.width - Grid::frameSide - actionWidth;
    const int markerLeft = actionLeft - Grid::gap - markerSize;
    note.chkAudioAlarm.left = actionLeft;
    note.cmdAlarm.left = actionLeft;
    note.imgBell.left = markerLeft;
    note.imgAlarm.left = markerLeft;
}

std::int16_t NoteAlarm::AudioAlarm() const { return note.chkAudioAlarm.value() == 1 ? 1 : 0; }

const DueRules::AlarmValues& NoteAlarm::Values() {
    const std::pair<base::DateTime, base::DateTime> picked{note.dtDate.value, note.dtTime.value};
    if (valuesOf != picked) {
        values = DueRules::ValuesOf(picked.first, picked.second);
        valuesOf = picked;
    }
    return values;
}

forms::Picture NoteAlarm::Icon() {
    return forms::LoadPicture(forms::ApplicationPath("\\alarmon.ico"));
}

void NoteAlarm::Toggle() {
    const forms::Picture alarmIcon = Icon();
    if (isSet) {
        Clear();
    } else {
        Set(true);
        note.icon = alarmIcon;
    }
}

void NoteAlarm::Clear() {
    Set(false);
    note.icon = NoteIcon();
    note.fraAlarm.caption = " Schedule Alarm ";
}

void NoteAlarm::Restore(const forms::Picture& alarmIcon) {
    note.imgAlarm.picture = alarmIcon;
    note.imgAlarm.visible = true;
    Set(true);
    note.icon = alarmIcon;
}

void NoteAlarm::Set(bool set) {
    isSet = set;
    Paint();
    note.tmrNote.enabled = set;
    if (set) {
        note.tmrNote.interval = dueTestInterval;
        note.fraAlarm.caption = " Alarm Set ";
        FillCalendar();
        // Do not wait for the first tick of tmrNow, which may come after the second of the alarm.
        RestUntilNear();
    }
    if (this == &forms::Default<frmNote>().alarm) {
        FollowBlinking();
        for (const EditedNote* open : StandardCode::Notes().OpenNotes()) {
            StandardCode::WindowOf(*open).alarm.FollowBlinking();
        }
    }
}

void NoteAlarm::Paint() {
    note.cmdAlarm.caption = isSet ? turnOffAlarm : setAlarm;
    for (forms::Control* control : std::initializer_list<forms::Control*>{
             &note.shpMonth, &note.shpCalBody, &note.shpClock, &note.lblCalMonth, &note.lblDayYear,
             &note.lblClock}) {
        control->visible = isSet;
    }
    for (forms::Control* control : std::initializer_list<forms::Control*>{
             &note.lblTime, &note.lblDate, &note.dtDate, &note.dtTime}) {
        control->visible = !isSet;
    }
    note.dtDate.enabled = !isSet;
    note.dtTime.enabled = !isSet;
    if (!isSet) {
        note.imgAlarm.visible = false;
    }
}

void NoteAlarm::FillCalendar() {
    const base::DateTime date = note.dtDate.value;
    note.lblCalMonth.caption = base::EnglishMonthName(date.Month());
    note.lblDayYear.caption = std::to_string(date.Day()) + ", " + std::to_string(date.Year());
    note.lblClock.caption = forms::Machine().locale->TimeText(Values().AlarmTimeOfDay);
}

void NoteAlarm::RestUntilNear() {
    if (DueRules::MayRingSoon(Values(), forms::Now())) {
        note.tmrNote.Wake();
    } else {
        note.tmrNote.Rest();
    }
}

void NoteAlarm::FireIfDue() {
    if (!DueRules::IsEditorAlarmDue(Values(), forms::Now())) {
        return;
    }
    note.mnuShow.Click();
    note.BringToForeground();
    Set(false);
    // If the icon is missing, the program ends, and saves the note with its alarm off.
    note.icon = NoteIcon();
    note.edited.AcceptFiring(AudioAlarm());
    if (AudioAlarm() == 1) {
        Bell::RingBehindBox(Shared().AlarmSoundPath, "           Turn Off Alarm?", {},
                            "Jotwright Audio Alarm");
        note.chkAudioAlarm.value = 0;
        note.edited.AcceptFiring(AudioAlarm());
    }
}

// The default editor is hidden, so the user cannot set its alarm.
bool NoteAlarm::IsBlinking() { return forms::Default<frmNote>().alarm.isSet; }

void NoteAlarm::FollowBlinking() {
    const bool blinks = IsBlinking();
    if (blinks != static_cast<bool>(note.tmrLabel.Tick)) {
        note.tmrLabel.Tick = blinks ? [this] { Blink(); } : std::function<void()>();
        note.tmrLabel.Changed(forms::Aspect::Enabled);
    }
}

void NoteAlarm::Blink() {
    if (!IsBlinking()) {
        return;
    }
    Shared().BlinkPhase = !Shared().BlinkPhase;
    note.lblClock.caption = Shared().BlinkPhase ? "****" : "";
}
