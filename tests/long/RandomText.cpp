#include "tests/long/RandomText.h"

#include <vector>

namespace long_tests {

std::string RandomText::Characters(int count) {
    static const std::vector<std::string> alphabets[] = {
        {"a", "b", "e", "n", "o", "t", " ", "A", "Z", "0", "9"},
        {"ä", "ö", "ü", "ß", "é", "ç", "ñ", "Ø"},
        {"д", "ж", "я", "Ё"},
        {"α", "β", "ς", "Ω"},
        {"日", "本", "語", "の", "한", "글"},
        {"ع", "ر", "ب", "י", "ש"},
        {"\xF0\x9F\x98\x80", "\xF0\x9F\x8F\xBD", "e\xCC\x81", "\xE2\x80\x8D", "\xE2\x80\xAE"},
        {",", "#", "'", "&", "%", "*", "?", "<", "|", ";", ":", ".", "/", "\\", "\""},
    };
    const auto& alphabet = random.OneOf(alphabets);
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += random.OneOf(alphabet);
    }
    return text;
}

std::string RandomText::OfNote() {
    std::string text;
    for (int line = random.Below(4); line >= 0; --line) {
        text += Characters(random.Below(30)) + (line > 0 ? "\r\n" : "");
    }
    return text;
}

std::string RandomText::Title() {
    return random.OneIn(3) ? Characters(1 + random.Below(12))
                           : "Note " + std::to_string(random.Below(15));
}

}  // namespace long_tests
