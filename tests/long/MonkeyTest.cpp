#include <cstdio>

#include "tests/long/Monkey.h"
#include "tests/long/Scale.h"

namespace {

// Operates the program for some simulated days. After the random gestures of a day, the machine
// sleeps until the next morning.
class MonkeyTest : public long_tests::Monkey {};

}  // namespace

TEST_F(MonkeyTest, RandomGesturesBreakNoInvariant) {
    const std::int64_t days = long_tests::Scaled(20, 3653);
    constexpr int gesturesOfADay = 250;
    Begin(long_tests::Seed());
    std::int64_t day = 0;
    for (; day < days && !HasFailure(); ++day) {
        for (int i = 0; i < gesturesOfADay && !HasFailure(); ++i) {
            Act();
        }
        if (!HasFailure()) {
            Sleep();
        }
    }
    std::printf(
        "%lld days, %lld gestures, %lld starts, %lld kills, up to %zu loaded windows and "
        "%zu notes\n",
        static_cast<long long>(day), static_cast<long long>(Gestures()),
        static_cast<long long>(Starts()), static_cast<long long>(Kills()), MostForms(),
        MostNotes());
    if (HasFailure()) {
        ADD_FAILURE() << "after gesture " << Gestures()
                      << " of JOTWRIGHT_SEED=" << long_tests::Seed() << ':' << Story();
    }
}
