#include "notes/NoteStyle.h"

#include <algorithm>

#include "notes/frmNote.h"

using StandardCode::fontSizes;
using StandardCode::noteColors;

void NoteStyle::Design(const std::function<void()>& chosen) {
    for (std::size_t i = 0; i < noteColors.size(); ++i) {
        note.mnuColor.entries[i]->Click = [this, i, chosen] {
            ApplyColor(noteColors[i], i + 1);
            chosen();
        };
    }
    for (std::size_t i = 0; i < fontSizes.size(); ++i) {
        note.mnuFont.entries[i]->Click = [this, i, chosen] {
            ApplyFontSize(fontSizes[i]);
            chosen();
        };
    }
    ApplyColor(noteColors[0], 1);
    ApplyFontSize(12);
}

void NoteStyle::ApplyColor(StandardCode::NoteColor color, std::size_t newColorIndex) {
    colorIndex = newColorIndex;
    note.txtNote.backColor = color.back;
    note.txtNote.foreColor = color.text;
    for (std::size_t i = 0; i < noteColors.size(); ++i) {
        note.mnuColor.entries[i]->checked = i + 1 == colorIndex;
    }
}

void NoteStyle::ApplyFontSize(int points) {
    if (std::find(fontSizes.begin(), fontSizes.end(), points) == fontSizes.end()) {
        return;
    }
    note.txtNote.fontSize = points;
    for (std::size_t i = 0; i < fontSizes.size(); ++i) {
        note.mnuFont.entries[i]->checked = fontSizes[i] == points;
    }
}

std::int16_t NoteStyle::FontSize() const {
    const int size = note.txtNote.fontSize;
    return size == 10 || size == 12 || size == 14 ? static_cast<std::int16_t>(size)
                                                  : std::int16_t{16};
}
