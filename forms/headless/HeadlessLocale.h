#pragma once

#include <array>
#include <string>
#include <string_view>

#include "forms/Devices.h"

namespace forms::headless {

// Uses English names and formats and code page 1252, unless a test sets something else.
class HeadlessLocale : public Locale {
  public:
    // Formats as in the system's settings: d dd M MM yy yyyy, h hh H HH m mm s ss t tt. Other
    // characters and 'quoted text' are kept.
    std::string shortDateFormat = "M/d/yyyy";
    std::string timeFormat = "h:mm:ss tt";
    std::string morning = "AM";
    std::string afternoon = "PM";
    std::array<std::string, 7> weekdayNames{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                            "Thursday", "Friday", "Saturday"};

    base::NumberFormat numbers;

    static constexpr int utf8CodePage = 65001;
    int codePage = 1252;          // of the system: 1252, 932, 936 or 65001 (UTF-8)
    int languageCodePage = 1252;  // of the system's language; used if codePage is UTF-8

    std::string ShortDate(base::DateTime value) override;
    std::string TimeText(base::DateTime value) override;
    std::string WeekdayName(base::DateTime value) override;
    base::NumberFormat Numbers() override { return numbers; }
    std::string ToUpper(const std::string& text) override;
    std::optional<std::string> ToAnsi(const std::string& utf8) override;
    std::string FromAnsi(const std::string& bytes) override;

  private:
    std::string FormatLike(const std::string& format, base::DateTime value) const;
};

// Replaces each character with its simple upper-case form, as comparisons of file names do.
std::string UpperCase(std::string_view utf8);

}  // namespace forms::headless
