#pragma once

#include <string>

namespace forms {

enum class BoxButtons { Ok, YesNo };
enum class BoxIcon { None, Information, Question, Exclamation, Critical };
enum class BoxResult { Ok, Yes, No };

struct MsgBoxOptions {
    BoxButtons buttons = BoxButtons::Ok;
    BoxIcon icon = BoxIcon::None;
    bool secondIsDefault = false;  // Enter answers No
};

// The contents of a box. They are copies, so that no handler can change them while the box is open.
struct BoxRequest {
    std::string text;
    std::string caption;
    MsgBoxOptions options;
};

// Shows a box and waits for the user's answer. Meanwhile timers tick and other events go on. The
// user cannot use the windows that are open, but can use the tray icon. The user cannot close a
// Yes/No box without an answer. Closing an OK box answers OK.
BoxResult MsgBox(const std::string& text, MsgBoxOptions options, const std::string& caption);

}  // namespace forms
