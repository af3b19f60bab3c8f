#include "app/Settings.h"

#include "forms/Devices.h"
#include "forms/Text.h"

namespace Settings {

std::string Read(const std::string& section, const std::string& key,
                 const std::string& defaultValue) {
    return forms::Machine().settings->Read(section, key).value_or(defaultValue);
}

std::string Read(const std::string& section, const std::string& key, int defaultValue) {
    return Read(section, key, std::to_string(defaultValue));
}

std::int16_t ReadInteger(const std::string& section, const std::string& key, int defaultValue) {
    return forms::ToInteger16(Read(section, key, defaultValue));
}

void Write(const std::string& section, const std::string& key, const std::string& value) {
    forms::Machine().settings->Write(section, key, value);
}

void Write(const std::string& section, const std::string& key, int value) {
    Write(section, key, std::to_string(value));
}

}  // namespace Settings
