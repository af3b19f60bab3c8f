#include <gtest/gtest.h>

#include "alarms/StrikeTable.h"

namespace {

using base::DateTime;
using StrikeTable::StrikesAt;

TEST(StrikeTableTest, StrikesFifteenSecondsAfterEachHour) {
    constexpr std::array<int, 24> strikes{12, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11,
                                          0,  1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12};
    for (int hour = 0; hour < 24; ++hour) {
        EXPECT_EQ(StrikesAt(DateTime::FromTime(hour, 0, 15)),
                  strikes[static_cast<std::size_t>(hour)])
            << hour;
    }
}

TEST(StrikeTableTest, NoonIsSilentAndMidnightAndElevenStrikeTwelve) {
    EXPECT_EQ(StrikesAt(DateTime::FromTime(12, 0, 15)), 0);
    EXPECT_EQ(StrikesAt(DateTime::FromTime(0, 0, 15)), 12);
    EXPECT_EQ(StrikesAt(DateTime::FromTime(23, 0, 15)), 12);
}

TEST(StrikeTableTest, EveryOtherSecondOfTheDayIsSilent) {
    int striking = 0;
    for (int second = 0; second < base::secondsPerDay; ++second) {
        striking += StrikesAt(DateTime{second}) != 0 ? 1 : 0;
    }
    EXPECT_EQ(striking, 23);
}

TEST(StrikeTableTest, TheLastEntryIsNeverReached) {
    EXPECT_STREQ(StrikeTable::entries.back().time, "11:00:15 PM");
    EXPECT_EQ(base::ParseTime(StrikeTable::entries.back().time),
              base::ParseTime(StrikeTable::entries.front().time));
    EXPECT_EQ(StrikeTable::entries.back().strikes, 11);
}

TEST(StrikeTableTest, ATimeWithADateIsSilent) {
    EXPECT_EQ(StrikesAt(Combine(DateTime::FromDate(2004, 5, 14), DateTime::FromTime(15, 0, 15))),
              0);
}

}  // namespace
