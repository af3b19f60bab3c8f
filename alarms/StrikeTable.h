#pragma once

#include <array>

#include "base/DateTime.h"

// When the cuckoo clock strikes, and how often.
namespace StrikeTable {

struct Entry {
    const char* time;
    int strikes;
};

// Searched from the first to the last. The first entry stands for 23:00:15, so the last one is
// never reached and eleven at night strikes twelve; noon has no entry. This is how the clock goes.
inline constexpr std::array<Entry, 24> entries{{
    {"23:00:15 PM", 12}, {"1:00:15 AM", 1}, {"2:00:15 AM", 2},   {"3:00:15 AM", 3},
    {"4:00:15 AM", 4},   {"5:00:15 AM", 5}, {"6:00:15 AM", 6},   {"7:00:15 AM", 7},
    {"8:00:15 AM", 8},   {"9:00:15 AM", 9}, {"10:00:15 AM", 10}, {"11:00:15 AM", 11},
    {"12:00:15 AM", 12}, {"1:00:15 PM", 1}, {"2:00:15 PM", 2},   {"3:00:15 PM", 3},
    {"4:00:15 PM", 4},   {"5:00:15 PM", 5}, {"6:00:15 PM", 6},   {"7:00:15 PM", 7},
    {"8:00:15 PM", 8},   {"9:00:15 PM", 9}, {"10:00:15 PM", 10}, {"11:00:15 PM", 11},
}};

// Strikes at exactly this second; 0 for none. timeOfDay has no date.
int StrikesAt(base::DateTime timeOfDay);

}  // namespace StrikeTable
