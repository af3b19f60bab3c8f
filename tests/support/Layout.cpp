#include "tests/support/Layout.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "forms/Keyboard.h"

namespace testing_support {

namespace {

using forms::Control;
using forms::ControlKind;
using forms::gestures::AccessKeyOf;

constexpr int smallestGap = 30;
constexpr int frameSide = 120;
constexpr int frameTop = 270;  // below the caption
constexpr int frameBottom = 60;
constexpr int buttonPadding = 180;  // total of both sides
constexpr int boxOfChoice = 285;    // the check mark or ring, and its distance from the caption
constexpr int frameCaptionInset = 300;

constexpr int messageFontPoints = 9;
constexpr int emUnits = 2048;
constexpr int twipsPerPoint = 20;

// Widths of the printable characters from the blank on, in 1/2048 of the font's height. Taken from
// the widest of the fonts that systems use for messages.
constexpr std::array<int, 95> widths{
    561,  582,  803,  1210, 1104, 1675, 1639, 471,  618,  618,  854,  1401, 444,  819,  444,  797,
    1104, 1104, 1104, 1104, 1104, 1104, 1104, 1104, 1104, 1104, 444,  444,  1401, 1401, 1401, 918,
    1956, 1321, 1174, 1268, 1436, 1036, 1000, 1405, 1454, 546,  731,  1188, 963,  1839, 1532, 1544,
    1147, 1544, 1225, 1087, 1073, 1407, 1272, 1912, 1208, 1133, 1169, 618,  774,  618,  1401, 850,
    549,  1042, 1204, 946,  1206, 1071, 641,  1206, 1158, 496,  496,  1018, 496,  1764, 1158, 1200,
    1204, 1206, 711,  869,  694,  1158, 981,  1479, 940,  991,  927,  618,  490,  618,  1401};

struct Place {
    int left;
    int top;
    int right;
    int bottom;
};

Place PlaceOf(const Control& control) {
    return {control.left, control.top, control.left + control.width, control.top + control.height};
}

// The properties that decide how the text of a control is drawn.
struct Facts {
    std::string caption;
    int points = 0;
    bool bold = false;
    bool hasMnemonic = true;
    bool isAutoSized = false;
};

Facts FactsOf(const Control& control) {
    Facts facts;
    if (const auto* captioned = dynamic_cast<const forms::Captioned*>(&control)) {
        facts.caption = captioned->caption;
        facts.hasMnemonic = captioned->useMnemonic;
    }
    if (const auto* label = dynamic_cast<const forms::Label*>(&control)) {
        facts.points = label->fontSize;
        facts.bold = label->bold;
        facts.isAutoSized = label->autoSize;
    }
    return facts;
}

std::string WithoutMnemonic(const std::string& text) {
    std::string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size()) {
            ++i;
        }
        shown += text[i];
    }
    return shown;
}

std::string NameOf(const Control& control) {
    const std::string caption = FactsOf(control).caption;
    return caption.empty() ? control.name : std::string(control.name) + " \"" + caption + '"';
}

int WidthOf(const std::string& text, int points, bool bold) {
    double units = 0;
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        units += code >= 0x20 && code < 0x7F ? widths.at(code - 0x20U) : widths.at('o' - 0x20);
    }
    const double em = points * twipsPerPoint;
    return static_cast<int>(std::ceil(units * em / emUnits * (bold ? 1.08 : 1.0)));
}

// Whether the control is visible and occupies space.
bool IsSeen(const Control& control, int formHeight) {
    // Controls below the form's edge become visible if the form is made higher.
    const bool isBelow = control.container == nullptr && control.top >= formHeight;
    const bool isInside = control.container == nullptr || IsSeen(*control.container, formHeight);
    return control.IsEffectivelyVisible() && control.width > 0 && !isBelow && isInside;
}

void CheckPlace(const Control& control, const forms::Form& form, int margin,
                std::vector<std::string>& faults) {
    const Place place = PlaceOf(control);
    Place inside{margin, margin, form.ScaleWidth() - margin, form.ScaleHeight() - margin};
    if (control.container != nullptr) {
        const Control& outer = *control.container;
        const bool hasCaption = !FactsOf(outer).caption.empty();
        inside = {frameSide, hasCaption ? frameTop : frameSide, outer.width - frameSide,
                  outer.height - frameBottom};
    } else if (control.kind == ControlKind::Toolbar) {
        // The buttons of a toolbar have a border that only the pointer makes visible.
        constexpr int buttonBorder = 120;
        inside.left -= buttonBorder;
        inside.top -= buttonBorder;
        inside.right += buttonBorder;
    }
    if (place.left < inside.left || place.top < inside.top || place.right > inside.right ||
        place.bottom > inside.bottom) {
        faults.push_back(NameOf(control) +
                         " is outside or too near to the edge: " + std::to_string(place.left) +
                         ", " + std::to_string(place.top) + " to " + std::to_string(place.right) +
                         ", " + std::to_string(place.bottom) + " in " +
                         std::to_string(inside.left) + ", " + std::to_string(inside.top) + " to " +
                         std::to_string(inside.right) + ", " + std::to_string(inside.bottom));
    }
}

void CheckApart(const Control& a, const Control& b, std::vector<std::string>& faults) {
    if (a.container != b.container || a.kind == ControlKind::Shape ||
        b.kind == ControlKind::Shape) {
        return;
    }
    const bool areLines = a.kind == ControlKind::Line && b.kind == ControlKind::Line;
    const int gap = areLines ? 1 : smallestGap;
    const Place first = PlaceOf(a);
    const Place second = PlaceOf(b);
    const bool isBeside = first.right + gap <= second.left || second.right + gap <= first.left;
    const bool isBelow = first.bottom + gap <= second.top || second.bottom + gap <= first.top;
    if (!isBeside && !isBelow) {
        faults.push_back(NameOf(a) + " and " + NameOf(b) + " overlap or touch");
    }
}

void CheckCaption(const Control& control, std::vector<std::string>& faults) {
    const Facts facts = FactsOf(control);
    if (facts.caption.empty() || facts.isAutoSized) {
        return;
    }
    const std::string text = facts.hasMnemonic ? WithoutMnemonic(facts.caption) : facts.caption;
    const bool isLabel = control.kind == ControlKind::Label;
    const bool hasBox =
        control.kind == ControlKind::CheckBox || control.kind == ControlKind::OptionButton;
    const int inset = isLabel                                      ? 0
                      : hasBox                                     ? boxOfChoice
                      : control.kind == ControlKind::CommandButton ? buttonPadding
                                                                   : frameCaptionInset;
    const int room = control.width - inset;
    const TextSize size = MeasureWide(text, facts.points, facts.bold, isLabel ? room : 0);
    if (size.width > room || (control.kind != ControlKind::Frame && size.height > control.height)) {
        faults.push_back(NameOf(control) + " needs " + std::to_string(size.width) + " by " +
                         std::to_string(size.height) + " and has " + std::to_string(room) + " by " +
                         std::to_string(control.height));
    }
}

void CheckRow(const Control& a, const Control& b, std::vector<std::string>& faults) {
    const bool areButtons =
        a.kind == ControlKind::CommandButton && b.kind == ControlKind::CommandButton;
    if (!areButtons || a.container != b.container) {
        return;
    }
    const bool sameRow = a.top() < b.top() + b.height() && b.top() < a.top() + a.height();
    const bool differ =
        a.height() != b.height() || (sameRow && (a.width() != b.width() || a.top() != b.top()));
    if (differ) {
        faults.push_back(NameOf(a) + " and " + NameOf(b) + " are of different sizes");
    }
}

void CheckTabOrder(const std::vector<const Control*>& seen, std::vector<std::string>& faults) {
    std::vector<std::string> backward;
    const Control* before = nullptr;
    for (const Control* control : seen) {
        if (!control->CanHaveFocus()) {
            continue;
        }
        if (before != nullptr) {
            const forms::Rect from = before->PlaceOnForm();
            const forms::Rect to = control->PlaceOnForm();
            if (to.left < from.left + from.width && to.top < from.top + from.height) {
                backward.push_back("the Tab key goes back from " + NameOf(*before) + " to " +
                                   NameOf(*control));
            }
        }
        before = control;
    }
    // The order may begin in the middle, at the control that is used first.
    if (backward.size() > 1) {
        faults.insert(faults.end(), backward.begin(), backward.end());
    }
}

}  // namespace

TextSize MeasureWide(const std::string& text, int points, bool bold, int wrapWidth) {
    const int size = points == 0 ? messageFontPoints : points;
    const int lineHeight = (size * twipsPerPoint * 133 + 99) / 100;
    TextSize measured;
    std::string line;
    const auto endLine = [&] {
        measured.width = std::max(measured.width, WidthOf(line, size, bold));
        measured.height += lineHeight;
        line.clear();
    };
    std::string word;
    const auto endWord = [&] {
        if (wrapWidth > 0 && !line.empty() && WidthOf(line + word, size, bold) > wrapWidth) {
            while (!line.empty() && line.back() == ' ') {
                line.pop_back();
            }
            endLine();
        }
        line += word;
        word.clear();
    };
    for (const char character : text) {
        if (character == '\n') {
            endWord();
            endLine();
        } else if (character == ' ') {
            endWord();
            line += ' ';
        } else if (character != '\r') {
            word += character;
        }
    }
    endWord();
    endLine();
    return measured;
}

std::vector<std::string> LayoutFaults(const forms::Form& form, int margin) {
    std::vector<std::string> faults;
    std::vector<const Control*> seen;
    for (const Control* control : form.focus.TabOrder()) {
        if (IsSeen(*control, form.ScaleHeight())) {
            seen.push_back(control);
        }
    }
    for (std::size_t i = 0; i < seen.size(); ++i) {
        CheckPlace(*seen[i], form, margin, faults);
        CheckCaption(*seen[i], faults);
        for (std::size_t j = i + 1; j < seen.size(); ++j) {
            CheckApart(*seen[i], *seen[j], faults);
            CheckRow(*seen[i], *seen[j], faults);
        }
    }
    CheckTabOrder(seen, faults);
    return faults;
}

std::string SharedAccessKeys(const forms::Form& form) {
    std::map<char, int> count;
    for (const Control* control : form.Controls()) {
        const Facts facts = FactsOf(*control);
        if (const char key = AccessKeyOf(facts.caption); key != 0 && facts.hasMnemonic) {
            ++count[key];
        }
    }
    for (const forms::Menu* menu : form.Menus()) {
        if (const char key = AccessKeyOf(menu->caption); key != 0 && menu->inMenuBar) {
            ++count[key];
        }
    }
    std::string shared;
    for (const auto& [key, times] : count) {
        if (times > 1) {
            shared += key;
        }
    }
    return shared;
}

}  // namespace testing_support
