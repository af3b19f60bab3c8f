#pragma once

#include "forms/Devices.h"

namespace forms::win32 {

class WinLocale : public Locale {
  public:
    WinLocale();
    // Uses codePage in place of the system's code page.
    explicit WinLocale(unsigned codePage) : ansiCodePage(codePage) {}

    std::string ShortDate(base::DateTime value) override;
    std::string TimeText(base::DateTime value) override;
    std::string WeekdayName(base::DateTime value) override;
    base::NumberFormat Numbers() override;
    // Uses the rules of the file system, not those of the user's language (for example, a dotless i
    // stays as it is), because callers also compare the names of files in upper case.
    std::string ToUpper(const std::string& text) override;
    std::optional<std::string> ToAnsi(const std::string& utf8) override;
    std::string FromAnsi(const std::string& bytes) override;

  private:
    const unsigned ansiCodePage;
};

}  // namespace forms::win32
