#include "notes/CreateNote.h"

#include <cstdint>

#include "app/Settings.h"
#include "notes/OpenEditor.h"

namespace StandardCode {

namespace {

// Not one of the codes 0 to 3, so the editor keeps its own font size if the user never stored the
// options.
constexpr std::int16_t noFontSizeCode = 12;

void ApplyDefaultColor(frmNote& note, int code) {
    const bool isKnown = code >= 0 && code < static_cast<int>(noteColors.size());
    const std::size_t place = isKnown ? static_cast<std::size_t>(code) : noteColors.size() - 1;
    note.style.ApplyColor(noteColors[place], place + 1);
}

void ApplyDefaultFontSize(frmNote& note, int code) {
    if (code >= 0 && code < static_cast<int>(fontSizes.size())) {
        note.style.ApplyFontSize(fontSizes[static_cast<std::size_t>(code)]);
    }
}

}  // namespace

std::shared_ptr<frmNote> CreateNote(const std::string& title) {
    // Read both settings before the window is created, so that an error leaves no half-made window.
    const int color = Settings::defaultColor.Read();
    const int fontSize = Settings::defaultFontSize.ReadOr(noFontSizeCode);
    auto note = OpenNewEditor(title);
    ApplyDefaultColor(*note, color);
    ApplyDefaultFontSize(*note, fontSize);
    note->edited.MarkSaved();
    note->Show();
    note->txtNote.SetFocus();
    return note;
}

}  // namespace StandardCode
