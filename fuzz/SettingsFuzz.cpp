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

// Checks that reading any stored text as an integer gives a 16-bit number or a type mismatch. A
// number that was read and written is read as the same number.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    forms::headless::HeadlessSettings settings;
    forms::Machine().settings = &settings;
    const std::string value(data, data + size);
    const Settings::Number setting = Settings::defaultColor;
    settings.values[{setting.section, setting.key}] = value;
    Check(Settings::Text{setting.section, setting.key}.Read() == value);
    AlarmSounds::HasWaveExtension(value);
    try {
        const std::int16_t number = setting.Read();
        Check(forms::IsNumeric(value));
        setting.Write(number);
        Check(setting.Read() == number);
    } catch (const base::RuntimeError& error) {
        Check(error == base::ErrorNumber::TypeMismatch && !forms::IsNumeric(value));
    }
    return 0;
}
