#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "app/StandardCode.h"

class frmNote;

// The colour and the font size of the text in one editor, and the menus that change them.
class NoteStyle {
  public:
    explicit NoteStyle(frmNote& editor) : note(editor) {}

    // chosen runs after the user has chosen a colour or a size from a menu.
    void Design(const std::function<void()>& chosen);
    // Changes the colours of the text box, and checks the entry newColorIndex, 1 to 6, of the
    // colour menu.
    void ApplyColor(StandardCode::NoteColor color, std::size_t newColorIndex);
    // Does nothing if points is not 10, 12, 14 or 16.
    void ApplyFontSize(int points);
    // 1 to 6, see noteColors.
    std::size_t ColorIndex() const { return colorIndex; }
    // As stored in the file: 10, 12 or 14, or 16 for any other size.
    std::int16_t FontSize() const;

  private:
    frmNote& note;
    std::size_t colorIndex = 0;
};
