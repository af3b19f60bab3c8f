#pragma once

#include "forms/Devices.h"

namespace forms::win32 {

// Text values in the user's part of the registry, a key for each section.
class WinSettings : public SettingsStore {
  public:
    explicit WinSettings(std::wstring rootKey = L"Software\\Jotwright")
        : root(std::move(rootKey)) {}

    // Empty where the value is missing or no text.
    std::optional<std::string> Read(const std::string& section, const std::string& key) override;
    // RuntimeError 5 where the registry refuses.
    void Write(const std::string& section, const std::string& key,
               const std::string& value) override;

  private:
    std::wstring PathOf(const std::string& section) const;
    std::wstring root;  // below HKEY_CURRENT_USER
};

}  // namespace forms::win32
