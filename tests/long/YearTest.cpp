#include <algorithm>
#include <cstdio>
#include <random>

#include "alarms/SpecialAlarmsFile.h"
#include "forms/Services.h"
#include "notes/NoteStore.h"
#include "tests/long/Scale.h"
#include "tests/support/WholeProgram.h"

// The whole program runs for a year. Every wake-up is late by a random time, and the wall clock is
// slightly fast or slow. The program sees each second once, and each alarm rings once.

using namespace forms;

namespace {

constexpr int worstJitter = 400;    // milliseconds
constexpr int cuckooLength = 1700;  // milliseconds, the length of the shipped file
constexpr std::int64_t secondsPerHour = 3600;
// 1 to 11 in the morning, none at noon, 1 to 10 in the afternoon, and 12 at 11 pm and at midnight.
constexpr int strikesOfADay = 66 + 55 + 12 + 12;

// How the ticks of one timer followed the seconds of the wall clock.
struct Seconds {
    std::int64_t seen = 0;
    std::int64_t missed = 0;
    std::int64_t missedInStrikes = 0;
    std::int64_t doubled = 0;
    std::optional<base::DateTime> last;
};

// One alarm that should ring, and how often it has rung.
struct Planned {
    std::string what;
    base::DateTime due;
    int rung = 0;
};

class YearTest : public testing_support::WholeProgram {
  protected:
    void SetUp() override {
        WholeProgram::SetUp();
        random.seed(long_tests::Seed());
        SetNow(2031, 12, 31, 23, 59, 50);
        settings.values[{"Options", "StartCookoo"}] = "1";
        sound.lengths[testing_support::applicationFolder + "\\Cuckoo clock.wav"] = cuckooLength;
    }

    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }
    base::DateTime SomeMinute() { return base::DateTime::FromTime(Below(24), Below(60), 0); }

    void Watch(Timer& timer, Seconds& seconds) {
        const auto tick = timer.Tick;
        timer.Tick = [this, tick, &seconds] {
            const base::DateTime now = forms::Now();
            ++seconds.seen;
            if (seconds.last) {
                const std::int64_t step = now.seconds - seconds.last->seconds;
                seconds.doubled += step <= 0 ? 1 : 0;
                if (step > 1) {
                    (StruckSince(*seconds.last) ? seconds.missedInStrikes : seconds.missed) +=
                        step - 1;
                }
            }
            seconds.last = now;
            tick();
        };
    }

    bool StruckSince(base::DateTime moment) const {
        return !sound.log.empty() &&
               std::any_of(sound.log.rbegin(),
                           sound.log.rbegin() + std::min<std::ptrdiff_t>(20, std::ssize(sound.log)),
                           [moment](const auto& entry) {
                               return entry.kind == headless::RecordedSound::Kind::ToEnd &&
                                      entry.at >= moment;
                           });
    }

    void Rings(const std::string& what) {
        const base::DateTime now = clock.Now();
        const auto found = std::find_if(planned.begin(), planned.end(), [&](const Planned& plan) {
            return plan.what == what && plan.due == now;
        });
        if (found == planned.end()) {
            ++unplanned;
            ADD_FAILURE() << what << " rings at " << base::FormatIsoDate(now) << ' '
                          << base::FormatTime24(now);
        } else {
            ++found->rung;
        }
    }

    void PutSpecialAlarms() {
        std::array<SpecialAlarmsFile::Row, SpecialAlarmsFile::rowCount> rows;
        const std::array<std::string, 7> days{"Monday", "Tuesday",  "Wednesday", "Thursday",
                                              "Friday", "Saturday", "Sunday"};
        for (std::size_t i = 0; i < rows.size(); ++i) {
            rows[i] = {days[i], SomeMinute(), "special " + days[i], 1};
        }
        specialAlarms = rows;
        files.PutFile(SpecialAlarmsFile::Path(), SpecialAlarmsFile::Encode(rows));
    }

    void AnswerBoxes() {
        stage->improvise.box = [this](const BoxRequest& box) {
            if (box.caption == "Jotwright Daily Alarm") {
                Rings(box.text.substr(box.text.rfind('\n') + 1));
            } else if (box.text == "           Turn Off Alarm?") {
                Rings("editor");
            } else if (box.caption == " Erase Note?") {
                return Below(2) == 0 ? BoxResult::Yes : BoxResult::No;
            } else {
                ADD_FAILURE() << box.caption << ": " << box.text;
            }
            return box.options.buttons == BoxButtons::YesNo ? BoxResult::No : BoxResult::Ok;
        };
    }

    // New displays open in ticks of the main clock only.
    void WatchDisplays() {
        Timer& timer = Main().tmrNow;
        const auto tick = timer.Tick;
        timer.Tick = [this, tick] {
            const std::size_t before = runtime->LoadedForms().size();
            tick();
            const auto forms = runtime->LoadedForms();
            for (std::size_t i = before; i < forms.size(); ++i) {
                if (dynamic_cast<frmDisplayNote*>(forms[i].get()) != nullptr) {
                    Rings("saved " + forms[i]->caption());
                }
            }
        };
    }

    void PlanDay(base::DateTime day) {
        planned.clear();
        const std::size_t weekday = static_cast<std::size_t>((day.Weekday() + 6) % 7);
        planned.push_back(
            {specialAlarms[weekday].Message, base::Combine(day, specialAlarms[weekday].Time)});
        for (const char* title : {"Dentist", "Rent", "Call"}) {
            const base::DateTime time = SomeMinute();
            Note note = Note(title).WithAlarmAt(time).On(day);
            note.AudioAlarm = static_cast<std::int16_t>(Below(2));
            PutNote(note);
            planned.push_back({std::string("saved ") + title, base::Combine(day, time)});
        }
        Start([] { StandardCode::LoadNotesArray(); });
        frmNote& editor = Editor("Standing");
        const base::DateTime time = SomeMinute();
        user->Pick(editor.dtDate, day);
        user->Pick(editor.dtTime, time);
        if (editor.chkAudioAlarm.value() == 0) {
            user->Click(editor.chkAudioAlarm);
        }
        user->Click(editor.cmdAlarm);
        planned.push_back({"editor", base::Combine(day, time)});
    }

    void CloseDisplays() {
        const auto forms = runtime->LoadedForms();
        for (const auto& form : forms) {
            if (dynamic_cast<frmDisplayNote*>(form.get()) != nullptr && form->IsVisible()) {
                user->CloseBox(*form);
            }
        }
    }

    // Counts the strikes of the day that has ended.
    void CountStrikes() {
        const int struck = sound.Count(headless::RecordedSound::Kind::ToEnd);
        strikes += struck;
        missedStrikes += std::max(0, strikesOfADay - struck);
        doubledStrikes += std::max(0, struck - strikesOfADay);
        sound.log.clear();
    }

    void CountAlarms() {
        for (const Planned& plan : planned) {
            ++alarms;
            missedAlarms += plan.rung == 0 ? 1 : 0;
            doubledAlarms += plan.rung > 1 ? 1 : 0;
            EXPECT_EQ(plan.rung, 1) << plan.what << " of " << base::FormatIsoDate(plan.due) << ' '
                                    << base::FormatTime24(plan.due);
        }
    }

    static void Print(const char* name, const Seconds& seconds) {
        std::printf("%-22s %12lld %8lld %8lld %18lld\n", name, static_cast<long long>(seconds.seen),
                    static_cast<long long>(seconds.missed), static_cast<long long>(seconds.doubled),
                    static_cast<long long>(seconds.missedInStrikes));
        EXPECT_EQ(seconds.missed, 0) << name;
        EXPECT_EQ(seconds.doubled, 0) << name;
    }

    std::mt19937 random;
    std::array<SpecialAlarmsFile::Row, SpecialAlarmsFile::rowCount> specialAlarms;
    std::vector<Planned> planned;
    int alarms = 0;
    int missedAlarms = 0;
    int doubledAlarms = 0;
    int unplanned = 0;
    int strikes = 0;
    int missedStrikes = 0;
    int doubledStrikes = 0;
};

}  // namespace

TEST_F(YearTest, EverySecondIsSeenOnceAndEachAlarmRingsOnce) {
    const auto days = static_cast<int>(long_tests::Scaled(2, 366));
    PutSpecialAlarms();
    StartQuietly();
    AnswerBoxes();
    MakeNote("Standing");
    Seconds main;
    Seconds cuckoo;
    Seconds editor;
    WatchDisplays();
    Watch(Main().tmrNow, main);
    Watch(Main().tmrCooKoo, cuckoo);
    Watch(Editor("Standing").tmrNow, editor);
    clock.SetJitter(worstJitter, long_tests::Seed());

    for (int day = 0; day < days; ++day) {
        // Go on to the start of the next day, no matter how the clock has drifted.
        while (clock.Now().Hour() == 23) {
            Advance(1000 - clock.MillisecondOfSecond());
        }
        PlanDay(clock.Now().DateOnly());
        clock.SetDrift(Below(401) - 200);
        for (int hour = 0; hour < 23; ++hour) {
            Advance(secondsPerHour * 1000);
            CloseDisplays();
        }
        while (clock.Now().Hour() < 23) {
            Advance(100);
        }
        while (clock.Now().TimeOnly() < base::DateTime::FromTime(23, 59, 59)) {
            Advance(100);
        }
        CloseDisplays();
        CountStrikes();
        CountAlarms();
        if (HasFailure()) {
            break;
        }
    }
    std::printf("%d days, every wake-up up to %d ms late, clock drifting up to 200 ppm\n", days,
                worstJitter);
    std::printf("%-22s %12s %8s %8s %18s\n", "timer", "seconds seen", "missed", "doubled",
                "while it strikes");
    Print("main window, alarms", main);
    Print("main window, cuckoo", cuckoo);
    Print("editor, clock", editor);
    std::printf("alarms %d, missed %d, doubled %d, at a wrong second %d\n", alarms, missedAlarms,
                doubledAlarms, unplanned);
    std::printf("strikes %d, missed %d, doubled %d\n", strikes, missedStrikes, doubledStrikes);
    EXPECT_EQ(missedStrikes + doubledStrikes, 0);
    EXPECT_GE(main.seen + main.missedInStrikes, (days - 1) * base::secondsPerDay);
}
