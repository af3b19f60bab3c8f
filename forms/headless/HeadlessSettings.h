#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "forms/Devices.h"

namespace forms::headless {

// Settings for one test. Names of sections and keys are case-sensitive.
class HeadlessSettings : public SettingsStore {
  public:
    std::map<std::pair<std::string, std::string>, std::string> values;

    std::optional<std::string> Read(const std::string& section, const std::string& key) override {
        const auto found = values.find({section, key});
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }

    void Write(const std::string& section, const std::string& key,
               const std::string& value) override {
        values[{section, key}] = value;
    }
};

}  // namespace forms::headless
