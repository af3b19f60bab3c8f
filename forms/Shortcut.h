#pragma once

#include <variant>

namespace forms {

class CommandButton;
class Menu;
class Toolbar;

// The keys that press a button or choose a menu entry from anywhere in a form.
enum class Shortcut { ControlN, ControlP, ControlS, Delete, F1 };

// A press of the toolbar's button with this key.
struct ToolbarPress {
    Toolbar* toolbar;
    const char* key;
};

// The button or the menu entry that a shortcut stands for.
using ShortcutTarget = std::variant<std::monostate, CommandButton*, Menu*, ToolbarPress>;

}  // namespace forms
