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

    // The function runs after the user has chosen a colour or a size.
    void Design(const std::function<void()>& chosen);
    // Changes the colour of the text box, and checks the entry of the colour menu with this number,
    // 1 to 6.
    void ApplyColor(StandardCode::NoteColor color, std::size_t newColorIndex);
    // points must be 10, 12, 14 or 16. Any other size changes nothing.
    void ApplyFontSize(int points);
    // 1 to 6, see noteColors.
    std::size_t ColorIndex() const { return colorIndex; }
    // As stored in the file: 10, 12 or 14, or 16 for any other size.
    std::int16_t FontSize() const;

  private:
    frmNote& note;
    std::size_t colorIndex = 0;
};
