#include "forms/win32/BoxText.h"

#include <cstddef>

namespace forms::win32 {

namespace {

// A box with mostRows rows fits on any screen. The system never breaks a row that has unitsInRow
// UTF-16 units or fewer, even if all of them are wide.
constexpr int mostRows = 30;
constexpr int unitsInRow = 50;
// Some systems make a box as wide as its longest word.
constexpr int unitsInWord = 80;

bool IsSecondHalf(wchar_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

bool EndsWord(wchar_t unit) { return unit == L' ' || unit == L'\t' || unit == L'\n'; }

}  // namespace

std::wstring TextThatFits(const std::wstring& text) {
    std::wstring fitting;
    int rows = 1;
    int inRow = 0;
    int inWord = 0;
    for (const wchar_t unit : text) {
        inWord = EndsWord(unit) ? 0 : inWord + 1;
        const bool splitsWord = inWord > unitsInWord && !IsSecondHalf(unit);
        if (splitsWord || unit == L'\n' || ++inRow > unitsInRow) {
            ++rows;
            inRow = unit == L'\n' ? 0 : 1;
        }
        if (rows > mostRows) {
            if (IsSecondHalf(unit) && !fitting.empty()) {
                fitting.pop_back();
            }
            return fitting + L'\u2026';
        }
        if (splitsWord) {
            fitting += L"\r\n";
            inWord = 1;
        }
        fitting += unit;
    }
    return fitting;
}

}  // namespace forms::win32
