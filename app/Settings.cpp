#include "app/Settings.h"

#include <limits>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "forms/Devices.h"
#include "forms/Services.h"

namespace Settings {

std::string Read(const std::string& section, const std::string& key,
                 const std::string& defaultValue) {
    return forms::Machine().settings->Read(section, key).value_or(defaultValue);
}

std::string Read(const std::string& section, const std::string& key, int defaultValue) {
    return Read(section, key, std::to_string(defaultValue));
}

std::int16_t ReadInteger(const std::string& section, const std::string& key, int defaultValue) {
    const std::string value = Read(section, key, defaultValue);
    try {
        return forms::ToInteger16(value);
    } catch (const base::RuntimeError& error) {
        if (!(error == base::ErrorNumber::Overflow)) {
            throw;
        }
        using Limits = std::numeric_limits<std::int16_t>;
        return base::Trim(value).starts_with('-') ? Limits::min() : Limits::max();
    }
}

void Write(const std::string& section, const std::string& key, const std::string& value) {
    forms::Machine().settings->Write(section, key, value);
}

void Write(const std::string& section, const std::string& key, int value) {
    Write(section, key, std::to_string(value));
}

}  // namespace Settings
