#pragma once

#include "forms/Devices.h"

namespace forms::win32 {

// Text values in the user's part of the registry, a key for each section.
class WinSettings : public SettingsStore {
  public:
    // rootKey: below HKEY_CURRENT_USER.
    explicit WinSettings(std::wstring rootKey) : root(std::move(rootKey)) {}

    // Empty where the value is missing or no text.
    std::optional<std::string> Read(const std::string& section, const std::string& key) override;
    // RuntimeError 5 where the registry refuses.
    void Write(const std::string& section, const std::string& key,
               const std::string& value) override;

  private:
    std::wstring PathOf(const std::string& section) const;
    std::wstring root;
};

}  // namespace forms::win32
