#pragma once

#include "forms/Devices.h"

namespace forms::win32 {

class WinLocale : public Locale {
  public:
    WinLocale();
    // codePage: takes the place of the system's.
    explicit WinLocale(unsigned codePage) : ansiCodePage(codePage) {}

    std::string ShortDate(base::DateTime value) override;
    std::string TimeText(base::DateTime value) override;
    std::string WeekdayName(base::DateTime value) override;
    base::NumberFormat Numbers() override;
    // As the file system folds letters, not as the language writes capitals (a dotless i stays
    // apart): what differs in upper case may be two files.
    std::string ToUpper(const std::string& text) override;
    std::optional<std::string> ToAnsi(const std::string& utf8) override;
    std::string FromAnsi(const std::string& bytes) override;

  private:
    const unsigned ansiCodePage;
};

}  // namespace forms::win32
