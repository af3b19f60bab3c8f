#include "base/Numbers.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <system_error>

#include "base/RuntimeError.h"

namespace base {

namespace {

constexpr std::string_view noBreakSpace = "\xc2\xa0";
constexpr std::string_view narrowNoBreakSpace = "\xe2\x80\xaf";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The value of a text that has only digits, a point and an exponent. Infinite if the number is too
// large for a double. strtod expects a point as the decimal sign, because the program never calls
// setlocale.
double ValueOf(const std::string& plain) {
    std::int64_t whole = 0;
    const char* last = plain.data() + plain.size();
    const auto [end, error] = std::from_chars(plain.data(), last, whole);
    const bool isWhole = end == last && error == std::errc{};
    return isWhole ? static_cast<double>(whole) : std::strtod(plain.c_str(), nullptr);
}

// Parses one text. Call Read() once.
class NumberReader {
  public:
    NumberReader(std::string_view text, const NumberFormat& numberFormat)
        : rest(text), format(numberFormat) {}

    std::optional<double> Read() {
        while (Skip(" ")) {
        }
        const std::optional<double> value = rest.starts_with('&') ? ReadRadix() : ReadDecimal();
        while (Skip(" ")) {
        }
        return rest.empty() ? value : std::nullopt;
    }

  private:
    bool Skip(std::string_view start) {
        if (start.empty() || !rest.starts_with(start)) {
            return false;
        }
        rest.remove_prefix(start.size());
        return true;
    }

    bool SkipThousandsSign() {
        const std::string_view sign = format.thousandsSign;
        if (sign == noBreakSpace || sign == narrowNoBreakSpace) {
            return Skip(noBreakSpace) || Skip(narrowNoBreakSpace) || SkipBlankBeforeDigit();
        }
        return sign != format.decimalSign && Skip(sign);
    }

    // A blank counts as a thousands sign only before a digit: blanks may also precede a trailing
    // sign.
    bool SkipBlankBeforeDigit() {
        return rest.size() > 1 && rest[0] == ' ' && IsDigit(rest[1]) && Skip(" ");
    }

    void TakeDigits(std::string& plain) {
        while (!rest.empty() && IsDigit(rest.front())) {
            plain += rest.front();
            rest.remove_prefix(1);
        }
    }

    // Skips the blanks, the sign, the currency symbol and the parentheses at one end of the number.
    // False if the number has a second sign or a second currency symbol.
    bool SkipSurroundings(char parenthesis) {
        for (;;) {
            if (Skip(" ")) {
                continue;
            }
            if (Skip(format.currencySymbol)) {
                if (hasCurrency) {
                    return false;
                }
                hasCurrency = true;
            } else if (rest.starts_with('-') || rest.starts_with('+')) {
                if (hasSign) {
                    return false;
                }
                hasSign = true;
                isNegative = rest.front() == '-';
                rest.remove_prefix(1);
            } else if (rest.starts_with(parenthesis)) {
                ++parentheses;
                rest.remove_prefix(1);
            } else {
                return true;
            }
        }
    }

    std::optional<double> ReadDecimal() {
        if (!SkipSurroundings('(')) {
            return std::nullopt;
        }
        const int opened = parentheses;
        std::string plain;
        do {
            TakeDigits(plain);
        } while (SkipThousandsSign());
        std::size_t digits = plain.size();
        if (Skip(format.decimalSign)) {
            plain += '.';
            TakeDigits(plain);
            digits = plain.size() - 1;
        }
        if (digits == 0 || !TakeExponent(plain) || !SkipSurroundings(')')) {
            return std::nullopt;
        }
        const int closed = parentheses - opened;
        if (opened != closed || opened > 1 || (opened == 1 && hasSign)) {
            return std::nullopt;
        }
        const double value = ValueOf(plain);
        return isNegative || opened == 1 ? -value : value;
    }

    // Reads the exponent, if there is one. False if it has no digits.
    bool TakeExponent(std::string& plain) {
        if (rest.empty() || std::string_view("eEdD").find(rest.front()) == std::string::npos) {
            return true;
        }
        // The letter may be the beginning of the currency symbol instead.
        if (!format.currencySymbol.empty() && rest.starts_with(format.currencySymbol)) {
            return true;
        }
        rest.remove_prefix(1);
        plain += 'E';
        if (rest.starts_with('-') || rest.starts_with('+')) {
            plain += rest.front();
            rest.remove_prefix(1);
        }
        const std::size_t before = plain.size();
        TakeDigits(plain);
        return plain.size() > before;
    }

    std::optional<double> ReadRadix() {
        rest.remove_prefix(1);
        int radix = 8;
        if (Skip("H") || Skip("h")) {
            radix = 16;
        } else if (!Skip("O")) {
            Skip("o");
        }
        std::uint64_t bits = 0;
        const auto [end, error] =
            std::from_chars(rest.data(), rest.data() + rest.size(), bits, radix);
        if (rest.empty() || error == std::errc::invalid_argument) {
            return std::nullopt;
        }
        rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
        if (error != std::errc{} || bits > std::numeric_limits<std::uint32_t>::max()) {
            return std::numeric_limits<double>::infinity();
        }
        if (bits <= std::numeric_limits<std::uint16_t>::max()) {
            return static_cast<std::int16_t>(bits);
        }
        return static_cast<std::int32_t>(bits);
    }

    std::string_view rest;
    const NumberFormat& format;
    bool hasSign = false;
    bool isNegative = false;
    bool hasCurrency = false;
    int parentheses = 0;
};

}  // namespace

bool IsNumeric(std::string_view text, const NumberFormat& format) {
    return NumberReader(text, format).Read().has_value();
}

std::int16_t ToInteger16(std::string_view text, const NumberFormat& format) {
    const std::optional<double> value = NumberReader(text, format).Read();
    if (!value) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    return ToInteger16(*value);
}

std::int16_t ToInteger16(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int16_t>::min() &&
          rounded <= std::numeric_limits<std::int16_t>::max())) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int16_t>(rounded);
}

std::int16_t CheckedAdd(std::int16_t a, int b) {
    return ToInteger16(static_cast<double>(a) + static_cast<double>(b));
}

}  // namespace base
