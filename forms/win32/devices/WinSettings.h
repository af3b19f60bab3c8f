#pragma once

#include "forms/Devices.h"

namespace forms::win32 {

// Text values in the user's part of the registry, with one key for each section.
class WinSettings : public SettingsStore {
  public:
    // rootKey is relative to HKEY_CURRENT_USER.
    explicit WinSettings(std::wstring rootKey) : root(std::move(rootKey)) {}

    // Empty if the value is missing or is not a text.
    std::optional<std::string> Read(const std::string& section, const std::string& key) override;
    // RuntimeError 5 if the registry refuses the value.
    void Write(const std::string& section, const std::string& key,
               const std::string& value) override;

  private:
    std::wstring PathOf(const std::string& section) const;
    std::wstring root;
};

}  // namespace forms::win32
