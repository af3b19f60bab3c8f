#include <cstdint>
#include <cstdlib>
#include <string>

#include "alarms/AlarmSounds.h"
#include "app/Settings.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "forms/Services.h"
#include "forms/headless/HeadlessSettings.h"

namespace {

void Check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

}  // namespace

// Any text in the store is a number of 16 bits or a type mismatch; a number is written as it is
// read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    forms::headless::HeadlessSettings settings;
    forms::Machine().settings = &settings;
    const std::string value(data, data + size);
    settings.values[{Settings::Options::section, Settings::Options::defaultColor}] = value;
    Check(Settings::Read(Settings::Options::section, Settings::Options::defaultColor, 0) == value);
    AlarmSounds::HasWaveExtension(value);
    const auto read = [] {
        return Settings::ReadInteger(Settings::Options::section, Settings::Options::defaultColor,
                                     0);
    };
    try {
        const std::int16_t number = read();
        Check(forms::IsNumeric(value));
        Settings::Write(Settings::Options::section, Settings::Options::defaultColor, number);
        Check(read() == number);
    } catch (const base::RuntimeError& error) {
        Check(error == base::ErrorNumber::TypeMismatch && !forms::IsNumeric(value));
    }
    return 0;
}
