#include "forms/win32/Utf.h"

#include "base/Text.h"

namespace forms::win32 {

static_assert(sizeof(wchar_t) == 2);

std::wstring Wide(std::string_view utf8) {
    std::wstring utf16;
    utf16.reserve(utf8.size());
    for (std::size_t position = 0; position < utf8.size();) {
        const char32_t character = base::NextCharacter(utf8, position);
        if (character < 0x10000) {
            utf16.push_back(static_cast<wchar_t>(character));
        } else {
            const char32_t offset = character - 0x10000;
            utf16.push_back(static_cast<wchar_t>(0xD800 + (offset >> 10)));
            utf16.push_back(static_cast<wchar_t>(0xDC00 + (offset & 0x3FF)));
        }
    }
    return utf16;
}

std::string Narrow(std::wstring_view utf16) {
    std::string utf8;
    utf8.reserve(utf16.size());
    for (std::size_t position = 0; position < utf16.size(); ++position) {
        char32_t character = utf16[position];
        const bool isHighHalf = character >= 0xD800 && character < 0xDC00;
        if (isHighHalf && position + 1 < utf16.size()) {
            const char32_t low = utf16[position + 1];
            if (low >= 0xDC00 && low < 0xE000) {
                character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
                ++position;
            }
        }
        base::AppendCharacter(utf8, character);
    }
    return utf8;
}

}  // namespace forms::win32
