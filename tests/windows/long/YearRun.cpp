#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>
#include <set>

#include "tests/windows/CuckooCall.h"
#include "tests/windows/long/Load.h"
#include "tests/windows/long/YearUser.h"

// Takes the real program through a year: the clock jumps from one event to the next. A model of the
// user predicts the windows that are open and the bytes of all notes at each moment.
//
// The run visits JOTWRIGHT_DAYS days, with JOTWRIGHT_NOTES notes. On each it waits for the weekly
// alarm and for the cuckoo in one hour that the random numbers choose. The alarms and strikes that
// the clock jumps over are not due, as if the machine slept; docs/reliability.md describes that.
// JOTWRIGHT_SEED is the seed of the random numbers. JOTWRIGHT_TEST_ZONE of
// scripts/run-windows-tests must be the time zone of YearModel.h.

namespace driver {

namespace {

constexpr const char* weeklyBox = "Jotwright Daily Alarm";
constexpr std::int64_t before = 2;  // seconds from the jump to the event
// Seconds from a jump of the clock until the event has certainly passed, and its sound has reached
// the recorder.
constexpr unsigned settled = 40;
constexpr std::int64_t after = 3;  // seconds from the event until nothing else may come up

// Whether other acts of the user may precede the event. In the night of a clock change, they may
// not.
bool IsPlain(const YearEvent& event) {
    constexpr std::int64_t night = 4 * year::hour;
    for (const int day : {year::springDay, year::fallDay}) {
        if (event.at >= day * year::day - year::hour && event.at < day * year::day + night) {
            return false;
        }
    }
    return true;
}

// The difference of the clock's time to universal time, at noon of this day.
int HoursAhead(const std::string& date) {
    Clock::Set(date + " 12:00:00");
    SYSTEMTIME local{};
    SYSTEMTIME universal{};
    ::GetLocalTime(&local);
    ::GetSystemTime(&universal);
    return local.wHour - universal.wHour;
}

}  // namespace

class YearRun : public YearUser {
  protected:
    enum class Act { Nothing, EditAndHide, EditAndSave, Kill, KillBefore, KillUnsaved, Exit };

    void Plan(int days, std::size_t noteCount);
    void PlanAlarm(YearNote& note, std::int64_t at);
    void PlanWeekly();
    void PlanChanges();

    void Do(Act act, const YearEvent& event);
    void Live(const YearEvent& event);
    void LiveNote(const YearEvent& event);
    void AnswerEditor(YearNote& note, std::int64_t at);
    void AnswerDisplay(const YearEvent& event);
    void LiveWeekly(const YearEvent& event);
    // setClock sets the clock to a time just before the strikes.
    void LiveStrike(const YearEvent& event, int strikes, const std::function<void()>& setClock);
    void LiveChange(const YearEvent& event);
    // Jumps to the event, and waits until the windows of the model are open and hasCome is true. A
    // little later, checks that no other window has opened. box is the caption of the message box
    // that the event opens, if any.
    void Meet(const YearEvent& event, const std::string& box = "",
              const std::function<bool()>& hasCome = {});
    void Report() const;

    std::string CuckooPath() const { return folder + "\\Cuckoo clock.wav"; }

    std::optional<CuckooCall> call;
    std::optional<YearCalendar> calendar;
    std::multiset<YearEvent> events;  // to come
    std::vector<Act> acts;            // to come
    int editors = 0;
    int displays = 0;
    int weekly = 0;
    int strikesHeard = 0;
    int hours = 0;
    int changes = 0;
    int repetitions = 0;
};

void YearRun::PlanAlarm(YearNote& note, std::int64_t at) {
    note.SetAlarm(at, Below(2));
    events.insert({at, YearEvent::Kind::Note, note.title});
}

void YearRun::PlanWeekly() {
    std::map<std::string, std::pair<int, int>> times;
    std::string file;
    MakeFolder(folder + "\\SpecialAlarms");
    for (int i = 0; i < 7; ++i) {
        const std::string day = year::Weekday(i);
        // The alarm of Sunday is in the hour that comes twice when daylight saving time ends.
        times[day] = day == "Sunday" ? std::pair(1, 30) : std::pair(4 + Below(20), 20 + Below(26));
        char time[16]{};
        std::snprintf(time, sizeof time, "#%02d:%02d:00#", times[day].first, times[day].second);
        file += '"' + day + "\"," + time + ",\"weekly " + day + "\",1\r\n";
    }
    WriteWholeFile(folder + "\\SpecialAlarms\\SpecialAlarms.txt", file);
    for (const int day : calendar->Days()) {
        const auto [hour, minute] = times[year::Weekday(day)];
        calendar->Take(day, hour);
        events.insert({year::At(day, hour, minute), YearEvent::Kind::Weekly, year::Weekday(day)});
    }
}

void YearRun::PlanChanges() {
    events.insert({year::spring, YearEvent::Kind::Change, ""});
    events.insert({year::fall, YearEvent::Kind::Change, ""});
    // The clock shows 1:15 and 1:30 again. The display of the note is still open.
    constexpr std::int64_t quarter = 15 * year::minute;
    events.insert({year::fall + quarter, YearEvent::Kind::Silence, ""});
    events.insert({year::fall + 2 * quarter, YearEvent::Kind::Weekly, "Sunday"});
    PlanAlarm(AddNote(), year::At(year::fallDay, 1, 15));
    // The clock never shows 2:30.
    YearNote& skipped = AddNote();
    skipped.SetAlarm(year::At(year::springDay, 1, 30), 1);
    skipped.time = "02:30:00";
}

void YearRun::Plan(int days, std::size_t noteCount) {
    calendar.emplace(days, random);
    PlanWeekly();
    PlanChanges();
    for (const int day : calendar->Days()) {
        const int hour = Below(24);
        if (calendar->Take(day, hour)) {
            events.insert({year::At(day, hour, 0, 15), YearEvent::Kind::Strike, ""});
        }
    }
    while (notes.size() < noteCount) {
        const std::int64_t at = calendar->TakeAlarm(-year::day);
        if (at < 0) {
            throw Failure("too few days for these notes");
        }
        YearNote& note = AddNote();
        note.color = 1 + Below(5);
        PlanAlarm(note, at);
    }
    WriteNotes();
}

void YearRun::Meet(const YearEvent& event, const std::string& box,
                   const std::function<bool()>& hasCome) {
    const Captions expected = Expected(box);
    try {
        repetitions += LetTimeCome([&] { Clock::Set(year::Shown(event.at - before)); }, settled,
                                   "the windows are as expected at " + year::Shown(event.at),
                                   [&] { return Seen() == expected && (!hasCome || hasCome()); });
    } catch (const Failure&) {
        EXPECT_EQ(Seen(), expected);
        throw;
    }
    if (event.kind != YearEvent::Kind::Silence) {
        EXPECT_GE(Clock::Now(), year::Shown(event.at));
    }
    Clock::WaitFor(year::Shown(event.at + after));
    EXPECT_EQ(Seen(), expected) << "after " << year::Shown(event.at);
}

void YearRun::Do(Act act, const YearEvent& event) {
    YearNote* note = OneOpen();
    switch (act) {
        case Act::EditAndHide:
            if (note != nullptr) {
                EditAndHide(*note);
            }
            break;
        case Act::EditAndSave:
            if (note != nullptr) {
                EditAndSave(*note);
            }
            break;
        case Act::Kill:
            Kill();
            Start();
            break;
        case Act::KillBefore: {
            // A start may take longer than the seconds before the event, so the clock is set back
            // for the start.
            const std::string now = Clock::Now();
            Clock::Set(year::Shown(event.at - before));
            Kill();
            Clock::Set(now);
            Start();
            break;
        }
        case Act::KillUnsaved:
            if (note != nullptr) {
                EditAndKill(*note);
            }
            break;
        case Act::Exit:
            CloseOldDisplays(event.at + year::day);
            Exit();
            Start();
            break;
        case Act::Nothing:
            break;
    }
    WaitForExpected();
}

void YearRun::AnswerEditor(YearNote& note, std::int64_t at) {
    if (note.audio == 1) {
        Box(program, alarmBox).Click("OK");
    }
    switch (++editors % 3) {
        case 0:
            Hide(note);
            break;
        case 1:
            if (const std::int64_t next = calendar->TakeAlarm(at); next >= 0) {
                SetNewAlarm(note, next);
                events.insert({next, YearEvent::Kind::Note, note.title});
            }
            break;
        default:
            break;  // the editor stays open, and the file has the alarm
    }
}

void YearRun::AnswerDisplay(const YearEvent& event) {
    ++displays;
    switch (IsPlain(event) ? displays % 3 : 1) {
        case 0:
            CloseDisplay(event.title, true);
            if (const std::int64_t next = calendar->TakeAlarm(event.at); next >= 0) {
                events.insert({next, YearEvent::Kind::Note, MakeNoteFor(next)});
            }
            break;
        case 1:
            break;  // the display stays open
        default:
            CloseDisplay(event.title, false);
            break;
    }
}

void YearRun::LiveNote(const YearEvent& event) {
    YearNote& note = notes[event.title];
    if (note.isOpen && (!IsPlain(event) || editors > displays)) {
        Hide(note);
    }
    if (note.isOpen) {
        note.isUp = true;
        note.hasRung = true;
        const Window editor = program.WaitFor(note.title, formClass);
        Meet(event, note.audio == 1 ? alarmBox : "",
             [&] { return static_cast<bool>(editor.FindChild("Button", editorSet)); });
        AnswerEditor(note, event.at);
    } else {
        note.shownAt = event.at;
        Meet(event);
        AnswerDisplay(event);
    }
}

void YearRun::LiveWeekly(const YearEvent& event) {
    ++weekly;
    Meet(event, weeklyBox);
    const Box box(program, weeklyBox);
    EXPECT_EQ(box.Text(),
              "Message for " + event.title + "               \r\n\r\nweekly " + event.title);
    box.Click("OK");
}

void YearRun::LiveStrike(const YearEvent& event, int strikes,
                         const std::function<void()>& setClock) {
    ++hours;
    recorder.WaitForSilence();
    const std::uint64_t start = recorder.Now();
    const auto calls = [&] { return CuckooCalls(recorder, CuckooPath(), start); };
    if (strikes > 0) {
        repetitions +=
            LetTimeCome(setClock, settled, "the cuckoo strikes at " + year::Shown(event.at),
                        [&] { return recorder.HasSounded(start); });
        WaitUntil("the strikes have sounded", [&] { return calls() >= strikes; });
    } else {
        setClock();
    }
    const std::size_t lengthToHour = 13;
    EXPECT_EQ(Clock::Now().substr(0, lengthToHour), year::Shown(event.at).substr(0, lengthToHour));
    Clock::WaitFor(year::Shown(event.at + after));
    recorder.WaitForSilence();
    EXPECT_EQ(calls(), strikes) << year::Shown(event.at);
    strikesHeard += calls();
    WaitForExpected();
}

void YearRun::LiveChange(const YearEvent& event) {
    ++changes;
    const std::string date = year::Shown(event.at).substr(0, 10);
    YearEvent strike = event;
    strike.at += 15;
    LiveStrike(strike, event.at == year::spring ? 3 : 1, [&] {
        // If the change has already happened, this sets the clock back to before it.
        Clock::Set(date + " 00:45:00");
        Clock::Set(date + " 01:59:57");
    });
}

void YearRun::Live(const YearEvent& event) {
    if (IsPlain(event)) {
        if (acts.empty()) {
            acts = {Act::Nothing,    Act::EditAndHide, Act::EditAndSave, Act::Kill,
                    Act::KillBefore, Act::KillUnsaved, Act::Exit};
            std::shuffle(acts.begin(), acts.end(), random);
        }
        // Nothing is due in the minutes before the event.
        const bool isStrike = event.kind == YearEvent::Kind::Strike;
        const std::int64_t hour = event.at / year::hour * year::hour;
        Clock::Set(year::Shown(hour + (isStrike ? -10 : 1) * year::minute + Below(60)));
        Do(acts.back(), event);
        acts.pop_back();
    }
    switch (event.kind) {
        case YearEvent::Kind::Note:
            LiveNote(event);
            break;
        case YearEvent::Kind::Weekly:
            LiveWeekly(event);
            break;
        case YearEvent::Kind::Strike:
            LiveStrike(event, year::Strikes(std::stoi(year::Shown(event.at).substr(11, 2))),
                       [&] { Clock::Set(year::Shown(event.at - before)); });
            break;
        case YearEvent::Kind::Change:
            LiveChange(event);
            break;
        case YearEvent::Kind::Silence:
            Meet(event);
            break;
    }
    CloseOldDisplays(event.at);
    CheckFiles();
}

void YearRun::Report() const {
    std::printf(
        "alarms in editors %d, in displays %d, weekly alarms %d; strikes %d in %d hours; "
        "clock changes %d\n",
        editors, displays, weekly, strikesHeard, hours, changes);
    std::printf("kills %d, exits %d, notes made %d; clock set again %d times\n", kills, exits, made,
                repetitions);
    std::fflush(stdout);
}

TEST_F(YearRun, EveryAlarmAndStrikeComesOnceAndTheNotesAreAsTheUserLeftThem) {
    const auto seed = static_cast<unsigned>(Number("JOTWRIGHT_SEED", 1));
    const int days = Number("JOTWRIGHT_DAYS", 2);
    const int noteCount = Number("JOTWRIGHT_NOTES", 3);
    std::printf("JOTWRIGHT_SEED=%u, %d days, %d notes\n", seed, days, noteCount);
    random.seed(seed);
    ASSERT_EQ(HoursAhead("2031-07-01"), HoursAhead("2031-01-01") + 1) << "JOTWRIGHT_TEST_ZONE";
    call.emplace(CuckooPath(), 1);
    WriteSetting("Options", "StartCookoo", "1");
    Plan(days, static_cast<std::size_t>(noteCount));
    Clock::Set(year::Shown(events.begin()->at - year::hour));
    Start();
    WaitForExpected();
    constexpr int eventsOfReport = 50;
    for (int lived = 1; !events.empty() && !HasFailure(); ++lived) {
        const YearEvent event = *events.begin();
        events.erase(events.begin());
        SCOPED_TRACE(year::Shown(event.at) + ' ' + event.title);
        Live(event);
        if (lived % eventsOfReport == 0) {
            Report();
        }
    }
    if (!HasFailure()) {
        CloseOldDisplays(2 * year::days * year::day);
        Exit();
    }
    Report();
}

}  // namespace driver
