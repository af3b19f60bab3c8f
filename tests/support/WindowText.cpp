#include "tests/support/WindowText.h"

#include <map>
#include <vector>

namespace testing_support {

namespace {

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char character : text) {
        quoted += character == '\r'   ? std::string("\\r")
                  : character == '\n' ? std::string("\\n")
                  : character == '"'  ? std::string("\\\"")
                                      : std::string(1, character);
    }
    return quoted + '"';
}

std::string ColorText(forms::Color color) {
    return std::to_string(color.red) + '/' + std::to_string(color.green) + '/' +
           std::to_string(color.blue);
}

std::string FileName(const forms::Picture& picture) {
    return picture.path.substr(picture.path.rfind('\\') + 1);
}

// Collects the properties of one line that differ from their usual values.
class Line {
  public:
    explicit Line(std::string start) : text(std::move(start)) {}

    Line& Say(const std::string& words) {
        text += ' ' + words;
        return *this;
    }
    Line& If(bool holds, const std::string& words) { return holds ? Say(words) : *this; }
    Line& Text(const char* label, const std::string& value) {
        return If(!value.empty(), label + (' ' + Quoted(value)));
    }
    Line& Number(const char* label, int value, int usual) {
        return If(value != usual, label + (' ' + std::to_string(value)));
    }
    Line& Color(const char* label, const std::optional<forms::Color>& color) {
        return If(color.has_value(), label + (' ' + (color ? ColorText(*color) : "")));
    }

    std::string text;
};

template <class T>
const T* As(const forms::Control& control) {
    return dynamic_cast<const T*>(&control);
}

void DescribeText(const forms::Control& control, Line& line) {
    if (const auto* label = As<forms::Label>(control)) {
        line.Number("points", label->fontSize, 0).Color("text", label->foreColor);
        line.Text("font", label->fontName).If(label->bold, "bold").If(label->autoSize, "auto-size");
        line.If(label->alignment == forms::Alignment::Center, "centred");
        line.If(label->alignment == forms::Alignment::Right, "right");
        line.If(!label->useMnemonic, "no-mnemonic").If(bool(label->Click), "clickable");
    } else if (const auto* box = As<forms::TextBox>(control)) {
        line.Text("holds", box->text)
            .If(box->multiLine, "multi-line")
            .If(box->readOnly, "read-only");
        line.Number("points", box->fontSize, 0);
        line.Color("back", box->backColor).Color("text", box->foreColor);
    } else if (const auto* button = As<forms::CommandButton>(control)) {
        line.If(button->isDefault, "default").If(button->isCancel, "cancel");
    } else if (const auto* check = As<forms::CheckBox>(control)) {
        line.Number("value", check->value, 0);
    } else if (const auto* option = As<forms::OptionButton>(control)) {
        line.If(option->value, "selected").Color("back", option->backColor);
    }
}

void DescribeList(const forms::Control& control, Line& line) {
    if (const auto* combo = As<forms::ComboBox>(control)) {
        line.Number("index", combo->listIndex, -1);
        for (const std::string& item : combo->items) {
            line.Text("item", item);
        }
    } else if (const auto* list = As<forms::ListView>(control)) {
        for (const auto& column : list->columns) {
            line.Say("column " + Quoted(column.heading) + ' ' + std::to_string(column.width));
            line.Text("key", column.key);
        }
        line.Text("empty", list->emptyText);
    } else if (const auto* toolbar = As<forms::Toolbar>(control)) {
        for (const auto& button : toolbar->buttons()) {
            line.Say("button " + std::string(button.key) + ' ' +
                     Quoted(std::string(button.toolTip)) + ' ' +
                     toolbar->imageList->ResourceOf(button.image));
        }
    }
}

void DescribeRest(const forms::Control& control, Line& line) {
    if (const auto* picker = As<forms::DateTimePicker>(control)) {
        line.Text("format", picker->customFormat).If(picker->upDown, "up-down");
    } else if (const auto* image = As<forms::Image>(control)) {
        line.Text("picture", FileName(image->picture)).Text("resource", image->resourceName);
    } else if (const auto* shape = As<forms::Shape>(control)) {
        line.Number("shape", static_cast<int>(shape->shape), 0);
        line.Color("fill", shape->fillColor()).Color("border", shape->borderColor());
    } else if (const auto* drawn = As<forms::Line>(control)) {
        line.Color("color", drawn->color());
    }
}

class Writer {
  public:
    explicit Writer(const forms::Form& described) : form(described) {
        std::map<std::string, int> count;
        for (const forms::Control* control : form.Controls()) {
            ++count[control->name];
        }
        std::map<std::string, int> next;
        for (const forms::Control* control : form.Controls()) {
            const std::string name = control->name;
            names[control] =
                count[name] == 1 ? name : name + '[' + std::to_string(next[name]++) + ']';
        }
    }

    std::string Write() {
        Line line(form.name);
        line.Say(Quoted(form.caption))
            .Say(std::to_string(form.ScaleWidth()) + " x " + std::to_string(form.ScaleHeight()));
        line.Number("border", static_cast<int>(form.borderStyle), 0)
            .Text("icon", FileName(form.icon));
        line.Number("least-width", form.minimumWidth, 0)
            .Number("least-height", form.minimumHeight, 0);
        line.Color("back", form.backColor)
            .If(form.isPage, "page")
            .If(form.centerOnScreen, "centred");
        line.If(!form.showInTaskbar, "not-in-taskbar");
        Add(0, line);
        WriteMenus(form.Menus(), 1);
        WriteControls(nullptr, 1);
        Line tab("  Tab:");
        for (const forms::Control* control : form.focus.TabOrder()) {
            tab.If(control->CanHaveFocus(), names[control]);
        }
        text += tab.text + '\n';
        for (const forms::Timer* timer : form.Timers()) {
            Line timerLine(std::string("timer ") + timer->name);
            timerLine.Say(std::to_string(timer->interval()) + " ms");
            Add(1, timerLine.If(timer->enabled, "on"));
        }
        return text;
    }

  private:
    void Add(int depth, const Line& line) {
        text += std::string(static_cast<std::size_t>(depth) * 2, ' ') + line.text + '\n';
    }

    void WriteMenus(const std::vector<forms::Menu*>& menus, int depth) {
        for (const forms::Menu* menu : menus) {
            Line line(std::string("menu ") + menu->name);
            line.Say(Quoted(menu->caption)).If(!menu->enabled, "disabled");
            line.If(!menu->visible, "hidden").If(menu->checked, "checked");
            line.If(menu->parent == nullptr && !menu->inMenuBar, "pop-up");
            Add(depth, line);
            WriteMenus(menu->entries, depth + 1);
        }
    }

    void WriteControls(const forms::Control* container, int depth) {
        for (const forms::Control* control : form.Controls()) {
            if (control->container != container) {
                continue;
            }
            Line line(names[control]);
            if (const auto* captioned = As<forms::Captioned>(*control)) {
                line.Say(Quoted(captioned->caption));
            }
            line.Say("at " + std::to_string(control->left) + ' ' + std::to_string(control->top));
            line.Say(std::to_string(control->width) + " x " + std::to_string(control->height));
            line.If(!control->visible, "hidden").If(!control->enabled, "disabled");
            line.Text("tip", control->toolTip).Text("spoken", control->accessibleName);
            DescribeText(*control, line);
            DescribeList(*control, line);
            DescribeRest(*control, line);
            Add(depth, line);
            WriteControls(control, depth + 1);
        }
    }

    const forms::Form& form;
    std::map<const forms::Control*, std::string> names;
    std::string text;
};

}  // namespace

std::string WindowText(const forms::Form& form) { return Writer(form).Write(); }

}  // namespace testing_support
