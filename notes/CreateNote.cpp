#include "notes/CreateNote.h"

#include "app/Settings.h"
#include "notes/OpenEditor.h"

namespace StandardCode {

namespace {

// What the setting's codes 0 to 3 stand for; for any other code the editor keeps its own size.
constexpr std::array fontSizes{10, 12, 14, 16};
// No code but a size in points: an editor keeps its own size as long as nobody has chosen one.
constexpr int missingFontSize = 12;

void ApplyDefaultColor(frmNote& note, int code) {
    const bool isKnown = code >= 0 && code < static_cast<int>(noteColors.size());
    const std::size_t place = isKnown ? static_cast<std::size_t>(code) : noteColors.size() - 1;
    note.ApplyColor(noteColors[place], place + 1);
}

void ApplyDefaultFontSize(frmNote& note, int code) {
    if (code >= 0 && code < static_cast<int>(fontSizes.size())) {
        note.ApplyFontSize(fontSizes[static_cast<std::size_t>(code)]);
    }
}

}  // namespace

std::shared_ptr<frmNote> CreateNote(const std::string& title) {
    // Both before there is a window that an error would leave half made.
    const int color =
        Settings::ReadInteger(Settings::Options::section, Settings::Options::defaultColor, 0);
    const int fontSize = Settings::ReadInteger(Settings::Options::section,
                                               Settings::Options::defaultFontSize, missingFontSize);
    auto note = OpenNewEditor(title);
    ApplyDefaultColor(*note, color);
    ApplyDefaultFontSize(*note, fontSize);
    note->MarkSaved();
    note->Show();
    note->txtNote.SetFocus();
    return note;
}

}  // namespace StandardCode
