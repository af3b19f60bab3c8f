#include "app/Settings.h"

#include <limits>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "forms/Devices.h"
#include "forms/Services.h"

namespace Settings {

template <>
std::string Text::ReadOr(const std::string& current) const {
    return forms::Machine().settings->Read(section, key).value_or(current);
}

template <>
void Text::Write(const std::string& value) const {
    forms::Machine().settings->Write(section, key, value);
}

template <>
std::int16_t Number::ReadOr(const std::int16_t& current) const {
    const std::string value = Text{section, key}.ReadOr(std::to_string(current));
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

template <>
void Number::Write(const std::int16_t& value) const {
    Text{section, key}.Write(std::to_string(value));
}

}  // namespace Settings
