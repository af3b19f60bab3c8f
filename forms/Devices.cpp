#include "forms/Devices.h"

namespace forms {

Devices& Machine() {
    static Devices devices;
    return devices;
}

std::string Locale::GeneralDate(base::DateTime value) {
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
