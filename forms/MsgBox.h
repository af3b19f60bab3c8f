#pragma once

#include <string>

namespace forms {

enum class BoxButtons { Ok, YesNo };
enum class BoxIcon { None, Information, Question, Exclamation, Critical };
enum class BoxResult { Ok, Yes, No };

struct MsgBoxOptions {
    BoxButtons buttons = BoxButtons::Ok;
    BoxIcon icon = BoxIcon::None;
    bool secondIsDefault = false;  // No answers Enter
};

// What a box shows: a copy, so that nothing that runs meanwhile can change it.
struct BoxRequest {
    std::string text;
    std::string caption;
    MsgBoxOptions options;
};

// Shows a box and waits for its answer. Timers tick and other events go on meanwhile (the user
// cannot reach the windows, but the tray icon). Closing a Yes/No box is not possible; closing an OK
// box is OK.
BoxResult MsgBox(const std::string& text, MsgBoxOptions options, const std::string& caption);

}  // namespace forms
