#include "notes/TitleRules.h"

#include <array>

#include "base/Text.h"
#include "forms/Services.h"

namespace TitleRules {

namespace {

struct ForbiddenCharacter {
    char character;
    int rule;
    const char* picture;
    const char* caption;
    const char* text;
};

constexpr std::array<ForbiddenCharacter, 7> forbiddenCharacters{{
    {'/', 4, "no_Fslash.gif", "  Note Title Error", "Note titles can't contain a forwardslash."},
    {'\\', 5, "no_Fslash.gif", "  Note Title Error", "Note titles can't contain a backslash."},
    {'.', 6, "error.gif", "Note Title Error", "Note titles can't contain a period."},
    {':', 7, "error.gif", "Note Title Error", "Note titles can't contain a colon."},
    {';', 8, "error.gif", "Note Title Error", "Note titles can't contain a semi-colon."},
    {'\'', 9, "error.gif", "Note Title Error", "Note titles can't contain a single quote."},
    {'"', 10, "error.gif", "Note Title Error", "Note titles can't contain a double quote."},
}};

}  // namespace

Verdict Check(const std::string& title, bool isTaken) {
    if (forms::IsNumeric(title)) {
        return {1, "letters.gif", " Note Title Error",
                "Note titles can't contain numeric characters only.\r\n"
                " Please add a couple of letters.",
                false};
    }
    if (title.empty()) {
        return {2, "mascot_error.gif", "  Note Title Error",
                "Please Enter A Title For Your Note.\r\n", true};
    }
    if (base::Trim(title).empty()) {
        return {3, "", "", "", true};
    }
    for (const ForbiddenCharacter& forbidden : forbiddenCharacters) {
        if (title.find(forbidden.character) != std::string::npos) {
            return {forbidden.rule, forbidden.picture, forbidden.caption, forbidden.text, true};
        }
    }
    if (isTaken) {
        return {11, "error.gif", "Name Already Exists",
                "A note with this title already exits.\r\n\r\n"
                "Please choose another title for your new note.",
                true};
    }
    return {};
}

}  // namespace TitleRules
