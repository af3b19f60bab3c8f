#pragma once

#include <map>
#include <string>
#include <vector>

#include "forms/Form.h"

// Measures the layout of windows. All lengths are twips.
namespace testing_support {

// The faults in the layout of a loaded form in its present state, with one sentence for each:
//
//   - a visible control is outside of the form or its frame, or too near to its edge
//   - two visible controls overlap or touch (a shape may have other controls on it)
//   - a caption does not fit its control in the widest of the system's message fonts
//   - buttons in one row are of different sizes
//   - the Tab key goes back up or to the left more than once
std::vector<std::string> LayoutFaults(const forms::Form& form, int margin);

// The access keys that two or more controls and menus of the form share, in upper case, sorted.
std::string SharedAccessKeys(const forms::Form& form);

// The size of a text in the widest message font. If a width is given, the text is wrapped.
struct TextSize {
    int width = 0;
    int height = 0;
};
TextSize MeasureWide(const std::string& text, int points, bool bold, int wrapWidth = 0);

}  // namespace testing_support
