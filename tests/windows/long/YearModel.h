#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace driver {

// Times of the year 2031 in a zone whose daylight saving time lasts from the second Sunday of March
// to the first Sunday of November, as in EST5EDT,M3.2.0,M11.1.0. A time is counted in seconds that
// pass, since the year began, so that the hour that the clock shows twice is two hours.
namespace year {

constexpr int days = 365;
constexpr int springDay = 67;  // 9 March: the clock goes from 2:00 to 3:00
constexpr int fallDay = 305;   // 2 November: the clock goes from 2:00 back to 1:00
constexpr std::int64_t minute = 60;
constexpr std::int64_t hour = 60 * minute;
constexpr std::int64_t day = 24 * hour;
constexpr std::int64_t spring = springDay * day + 2 * hour;
constexpr std::int64_t fall = fallDay * day + 1 * hour;

// The first time at which the clock shows the given time. If the clock skips the given time,
// returns the time at which the clock shows one hour less.
std::int64_t At(int dayOfYear, int hours, int minutes, int seconds = 0);
// The clock's text, for example "2031-06-02 09:30:57".
std::string Shown(std::int64_t time);
std::string Weekday(int dayOfYear);
// The number of strikes of the cuckoo clock, which is silent at noon and strikes twelve at eleven
// in the evening.
int Strikes(int hourOfDay);

}  // namespace year

// The expected state of one note: the contents of its file, and the windows that show it.
struct YearNote {
    std::string title;
    std::string text;  // as in the file
    std::string date;
    std::string time;      // of the alarm
    std::string state;     // "1" if the alarm is set in the file
    int audio = 0;         // 1 if the sound of the alarm is on in the file
    int color = 1;         // 1 to 5
    bool hasTime = true;   // if false, the file has "#12:00#", as after an alarm display
    bool isOpen = false;   // in an editor
    bool isUp = false;     // the editor is not minimized
    bool hasRung = false;  // the editor has rung, and has not saved this
    // When its alarm display came up. Negative: no display is open.
    std::int64_t shownAt = -1;

    // Sets the alarm for the minute of this time.
    void SetAlarm(std::int64_t at, int withAudio);
    // Expects the note to be written with its alarm off.
    void Silence();
    // Expects an editor to have written the note with this text.
    void SaveText(const std::string& newText);
    std::string Bytes() const;
};

// One moment of the year that the run visits.
struct YearEvent {
    enum class Kind { Note, Weekly, Strike, Change, Silence };
    std::int64_t at;
    Kind kind;
    std::string title;  // the title of the note, or the message of the weekly alarm
    bool operator<(const YearEvent& other) const { return at < other.at; }
};

// The days of the year that the run visits, and the hours of the events on them. Each event has an
// hour of its own. Alarms are in the minutes 20 to 45. On the days on which the clock changes, the
// first four hours are not free.
class YearCalendar {
  public:
    // Chooses the visited days. The days on which the clock changes are among them.
    YearCalendar(int visitedDays, std::mt19937& numbers);

    const std::vector<int>& Days() const { return visited; }
    // Takes a free hour of a visited day after the day of this time, and returns a minute in it.
    // Negative if there is none.
    std::int64_t TakeAlarm(std::int64_t after);
    // Takes this hour of this day. Returns false if it is not free.
    bool Take(int dayOfYear, int hourOfDay);

  private:
    std::mt19937& random;
    std::vector<int> visited;
    std::vector<bool> isTaken = std::vector<bool>(year::days * 24);
};

}  // namespace driver
