#pragma once

// Dimensions for the layout of all windows, in twips. They leave room for the message fonts of all
// versions of Windows.
namespace Grid {

inline constexpr int margin = 180;   // between the edge of a window and its contents
inline constexpr int gap = 120;      // between controls, and between frames
inline constexpr int smallGap = 60;  // between a label and the control below it

inline constexpr int buttonWidth = 1260;
inline constexpr int buttonHeight = 375;
inline constexpr int fieldHeight = 345;   // text boxes, pickers, drop-down lists
inline constexpr int choiceHeight = 270;  // check boxes and option buttons
inline constexpr int choiceDistance = 375;
inline constexpr int lineHeight = 255;  // a line of the message font

// Distances between the edges of a frame and its contents.
inline constexpr int frameSide = 180;
inline constexpr int frameTop = 330;
inline constexpr int frameBottom = 180;

// Distances between the tops of two controls in the same line: a label in line with a field, a
// label with a button, a field with a button.
inline constexpr int labelInField = (fieldHeight - lineHeight) / 2;
inline constexpr int labelInButton = (buttonHeight - lineHeight) / 2;
inline constexpr int fieldInButton = (buttonHeight - fieldHeight) / 2;

}  // namespace Grid
