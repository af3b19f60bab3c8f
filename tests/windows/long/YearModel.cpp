#include "tests/windows/long/YearModel.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace driver {

namespace year {

std::int64_t At(int dayOfYear, int hours, int minutes, int seconds) {
    const std::int64_t shown = dayOfYear * day + hours * hour + minutes * minute + seconds;
    return shown < spring || shown >= fall + hour ? shown : shown - hour;
}

std::string Shown(std::int64_t time) {
    constexpr std::array lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const std::int64_t shown = time >= spring && time < fall ? time + hour : time;
    std::size_t month = 0;
    auto dayOfMonth = static_cast<int>(shown / day);
    while (dayOfMonth >= lengths.at(month)) {
        dayOfMonth -= lengths.at(month);
        ++month;
    }
    char text[32]{};
    std::snprintf(text, sizeof text, "2031-%02d-%02d %02d:%02d:%02d", static_cast<int>(month) + 1,
                  dayOfMonth + 1, static_cast<int>(shown % day / hour),
                  static_cast<int>(shown % hour / minute), static_cast<int>(shown % minute));
    return text;
}

std::string Weekday(int dayOfYear) {
    // 2031 begins on a Wednesday.
    constexpr std::array names{"Wednesday", "Thursday", "Friday", "Saturday",
                               "Sunday",    "Monday",   "Tuesday"};
    return names.at(static_cast<std::size_t>(dayOfYear) % names.size());
}

int Strikes(int hourOfDay) {
    if (hourOfDay == 12) {
        return 0;
    }
    return hourOfDay == 23 || hourOfDay == 0 ? 12 : hourOfDay % 12;
}

}  // namespace year

void YearNote::SetAlarm(std::int64_t at, int withAudio) {
    const std::string shown = year::Shown(at);
    date = shown.substr(0, 10);
    time = shown.substr(11);
    state = "1";
    audio = withAudio;
    hasTime = true;
}

void YearNote::Silence() {
    state = "0";
    audio = 0;
    hasRung = false;
}

void YearNote::SaveText(const std::string& newText) {
    text = newText;
    hasTime = true;
    if (hasRung) {
        Silence();
    }
}

std::string YearNote::Bytes() const {
    return '"' + title + "\",\"" + text + "\",#" + date + "#," +
           (hasTime ? '#' + time + '#' : std::string("\"#12:00#\"")) + ',' + std::to_string(color) +
           ",12,\"" + state + "\"," + std::to_string(audio) + ",\"yes\"\r\n";
}

YearCalendar::YearCalendar(int visitedDays, std::mt19937& numbers)
    : random(numbers), visited{year::springDay, year::fallDay} {
    std::vector<int> others;
    // The run starts an hour before its first event, so not on the first day.
    for (int dayOfYear = 1; dayOfYear < year::days; ++dayOfYear) {
        if (std::find(visited.begin(), visited.end(), dayOfYear) == visited.end()) {
            others.push_back(dayOfYear);
        }
    }
    std::shuffle(others.begin(), others.end(), random);
    others.resize(std::min(others.size(), static_cast<std::size_t>(std::max(0, visitedDays - 2))));
    visited.insert(visited.end(), others.begin(), others.end());
    std::sort(visited.begin(), visited.end());
    for (const int dayOfYear : {year::springDay, year::fallDay}) {
        for (int hourOfDay = 0; hourOfDay < 4; ++hourOfDay) {
            Take(dayOfYear, hourOfDay);
        }
    }
}

std::int64_t YearCalendar::TakeAlarm(std::int64_t after) {
    std::vector<std::pair<int, int>> hours;
    for (const int dayOfYear : visited) {
        for (int hourOfDay = 0; hourOfDay < 24; ++hourOfDay) {
            if (dayOfYear > after / year::day &&
                !isTaken[static_cast<std::size_t>(dayOfYear * 24 + hourOfDay)]) {
                hours.emplace_back(dayOfYear, hourOfDay);
            }
        }
    }
    if (hours.empty()) {
        return -1;
    }
    const auto [dayOfYear, hourOfDay] = hours[random() % hours.size()];
    Take(dayOfYear, hourOfDay);
    constexpr unsigned earliest = 20;
    constexpr unsigned latest = 45;
    return year::At(dayOfYear, hourOfDay,
                    static_cast<int>(earliest + random() % (latest - earliest + 1)));
}

bool YearCalendar::Take(int dayOfYear, int hourOfDay) {
    std::vector<bool>::reference taken =
        isTaken[static_cast<std::size_t>(dayOfYear * 24 + hourOfDay)];
    if (taken) {
        return false;
    }
    taken = true;
    return true;
}

}  // namespace driver
