#include "forms/Devices.h"

#include "forms/Runtime.h"

namespace forms {

Devices& Machine() {
    static Devices devices;
    return devices;
}

// Every device is set before the runtime starts, which the analyzer cannot see.
// NOLINTBEGIN(clang-analyzer-core.CallAndMessage)
DateTime Now() {
    if (Runtime::Exists()) {
        if (const auto moment = Runtime::Current().timers.Moment()) {
            return *moment;
        }
    }
    return Machine().clock->Now();
}

DateTime Today() { return Now().DateOnly(); }

std::string ApplicationPath(const std::string& relative) {
    return Machine().system->ApplicationFolder() + relative;
}
// NOLINTEND(clang-analyzer-core.CallAndMessage)

std::string Locale::GeneralDate(DateTime value) {
    if (!value.HasDate()) {
        return TimeText(value);
    }
    if (!value.HasTime()) {
        return ShortDate(value);
    }
    if (lastMomentText.empty() || !(value == lastMoment)) {
        lastMoment = value;
        lastMomentText = ShortDate(value) + " " + TimeText(value);
    }
    return lastMomentText;
}

}  // namespace forms
