#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/DateTime.h"
#include "forms/Control.h"
#include "forms/Devices.h"
#include "forms/ImageList.h"

// All kinds of control. They raise the same events on both stages: when the user acts (gestures
// call Clicked, Selected and so on) and, if the comment of the class says so, when code assigns a
// different value.
namespace forms {

// Controls of one class that share a name. An option button also has its index in the array.
template <class T, std::size_t count>
class ControlArray : public std::array<T, count> {
  public:
    ControlArray(Form* parent, const char* arrayName)
        : ControlArray(parent, arrayName, std::make_index_sequence<count>()) {}

  private:
    template <std::size_t... indices>
    ControlArray(Form* parent, const char* arrayName, std::index_sequence<indices...> /*places*/)
        : std::array<T, count>{{Element<indices>(parent, arrayName)...}} {}

    template <std::size_t index>
    static T Element(Form* parent, const char* arrayName) {
        if constexpr (std::is_constructible_v<T, Form*, const char*, int>) {
            return T(parent, arrayName, static_cast<int>(index));
        } else {
            return T(parent, arrayName);
        }
    }
};

// A control with a caption of its own.
class Captioned : public Control {
  public:
    using Control::Control;

    Property<std::string, Aspect::Caption> caption{*this};
    // Whether an ampersand in the caption marks an access key. Set it to false if the caption is
    // data that may contain an ampersand, for example a title. Set in Design only.
    bool useMnemonic = true;
};

enum class Alignment { Left, Center, Right };

class Label : public Captioned {
  public:
    Label(Form* parent, const char* controlName)
        : Captioned(parent, ControlKind::Label, controlName) {}

    Property<int, Aspect::FontSize> fontSize{*this, 0};  // points; 0: the form's font
    Property<std::optional<Color>, Aspect::ForeColor> foreColor{*this};  // empty: system colour
    // Set in Design only. Empty: the form's font. The text must live as long as the label, as a
    // literal does.
    const char* fontName = "";
    bool bold = false;  // set in Design only
    Alignment alignment = Alignment::Left;
    // If true, the label takes the size of its text whenever its text or its font size changes.
    bool autoSize = false;
    ClickHandler Click;

    void AfterChange(Aspect aspect) override;
    void Clicked() override { Raise(Click); }
    void SizeToText();
};

class TextBox : public Control {
  public:
    TextBox(Form* parent, const char* controlName)
        : Control(parent, ControlKind::TextBox, controlName) {}

    // The content. Reading it fetches typed text from the stage. Assigning a different text raises
    // Change. Line breaks are CR LF.
    class TextProperty {
      public:
        explicit TextProperty(TextBox& textBox) : owner(textBox) {}
        TextProperty(const TextProperty&) = delete;
        TextProperty& operator=(const TextProperty& other) { return *this = other(); }
        TextProperty& operator=(std::string newText);
        const std::string& operator()() const;
        operator const std::string&() const { return (*this)(); }

      private:
        friend class TextBox;
        TextBox& owner;
        mutable std::string value;
        mutable bool stale = false;
    } text{*this};

    bool multiLine = false;  // set in Design only
    bool readOnly = false;   // set in Design only
    // If true, the menu key opens the form's menu instead of the text box's own. Set in Design
    // only.
    bool leavesMenuKey = false;
    Property<int, Aspect::FontSize> fontSize{*this, 0};
    Property<std::optional<Color>, Aspect::BackColor> backColor{*this};  // empty: system colour
    Property<std::optional<Color>, Aspect::ForeColor> foreColor{*this};

    ClickHandler Change;
    ClickHandler DoubleClick;

    bool CanHaveFocus() const override { return true; }
    bool TakesLetters() const override { return true; }
    void AfterChange(Aspect aspect) override;
    void DoubleClicked() override { Raise(DoubleClick); }
    bool TakesEnter() const override { return multiLine && !readOnly; }
    bool HasOwnMenu() const override { return !leavesMenuKey; }
    // Called by Gestures only, when the user has changed the content on the stage. The next read of
    // the text fetches the new content.
    void Typed();
};

class CommandButton : public Captioned {
  public:
    CommandButton(Form* parent, const char* controlName)
        : Captioned(parent, ControlKind::CommandButton, controlName) {}
    // Enter presses the default button, unless another button has the focus. Escape presses the
    // cancel button.
    Property<bool, Aspect::Default> isDefault{*this, false};
    Property<bool, Aspect::Default> isCancel{*this, false};
    ClickHandler Click;
    bool CanHaveFocus() const override { return true; }
    void Clicked() override { Raise(Click); }
};

// Raises Click whenever the value changes, by the user or by code.
class CheckBox : public Captioned {
  public:
    CheckBox(Form* parent, const char* controlName)
        : Captioned(parent, ControlKind::CheckBox, controlName) {}

    // 0 unchecked, 1 checked, 2 grayed; RuntimeError 380 for any other number.
    class CheckValue : public Property<int, Aspect::Value> {
      public:
        using Property::Property;
        CheckValue& operator=(int newValue);
    } value{*this, 0};

    ClickHandler Click;
    bool CanHaveFocus() const override { return true; }
    void AfterChange(Aspect aspect) override;
    void Clicked() override { value = value() == 1 ? 0 : 1; }
};

// At most one of the option buttons of a container is selected. A button raises Click when it
// becomes selected, by the user or by code. A button that loses the selection raises nothing.
class OptionButton : public Captioned {
  public:
    OptionButton(Form* parent, const char* controlName, int arrayIndex = 0)
        : Captioned(parent, ControlKind::OptionButton, controlName), index(arrayIndex) {}
    const int index;  // place in its control array
    Property<bool, Aspect::Value> value{*this, false};
    Property<std::optional<Color>, Aspect::BackColor> backColor{*this};  // empty: system colour
    ClickHandler Click;
    bool CanHaveFocus() const override { return true; }
    void AfterChange(Aspect aspect) override;
    void Clicked() override { value = true; }
    // One button of each container is the Tab stop: the selected button, or else the first usable
    // one.
    bool IsTabStop() const override;
};

class Frame : public Captioned {
  public:
    Frame(Form* parent, const char* controlName)
        : Captioned(parent, ControlKind::Frame, controlName) {}
    int PointerRank() const override { return 1; }
};

// A drop-down list. Raises Click when its index changes, by the user or by code, and when the user
// chooses the same entry again.
class ComboBox : public Control {
  public:
    ComboBox(Form* parent, const char* controlName)
        : Control(parent, ControlKind::ComboBox, controlName) {}
    std::vector<std::string> items;                     // set in Design only
    Property<int, Aspect::Value> listIndex{*this, -1};  // -1: none
    ClickHandler Click;
    std::string Text() const;
    bool CanHaveFocus() const override { return true; }
    bool TakesLetters() const override { return true; }
    void Selected(int index);  // called by Gestures only
    void AfterChange(Aspect aspect) override;
};

// A list that is never visible: no stage shows it. Raises Click when its index changes.
class ListBox : public Control {
  public:
    ListBox(Form* parent, const char* controlName)
        : Control(parent, ControlKind::ListBox, controlName) {}
    Property<std::vector<std::string>, Aspect::Items> items{*this};
    Property<int, Aspect::Value> listIndex{*this, -1};
    ClickHandler Click;
    void AfterChange(Aspect aspect) override;
};

// A list in report view.
class ListView : public Control {
  public:
    ListView(Form* parent, const char* controlName)
        : Control(parent, ControlKind::ListView, controlName) {}

    struct Column {
        std::string heading;
        int width = 1440;  // twips
        std::string key;   // unique unless empty
        bool operator==(const Column&) const = default;
    };
    struct Row {
        std::string key;                 // unique unless empty
        int image = -1;                  // place in imageList; -1: none
        std::vector<std::string> texts;  // one text for each column
        bool operator==(const Row&) const = default;
    };

    // Set in Design only. If the list is wider than its columns, the last column fills the rest.
    std::vector<Column> columns;
    const ImageList* imageList = nullptr;  // an image list of the same form; set in Design only
    // Shown while the list has no rows. Set in Design only. The text must live as long as the list,
    // as a literal does.
    const char* emptyText = "";

    // Sets the text of the row in the column with this key. The row need not be in the list yet.
    // RuntimeError 9 if there is no such column.
    void SetText(Row& row, const std::string& columnKey, const std::string& text) const;
    const std::vector<Row>& Rows() const { return rows; }
    // position counts from 0. RuntimeError 457 if another row has the key, 9 if position is beyond
    // the end.
    void InsertRow(std::size_t position, Row row);
    void AddRow(Row row) { InsertRow(rows.size(), std::move(row)); }
    void RemoveRow(std::size_t position);  // RuntimeError 9 if there is no such row
    void Clear();
    // -1 if no row is selected.
    int SelectedRow() const { return selectedRow; }
    void Select(int position);    // raises no event
    void Selected(int position);  // called by Gestures only
    // The stage does not show changes of rows between these two calls. EndUpdate shows them all.
    void BeginUpdate() { ++updating; }
    void EndUpdate();

    ClickHandler ItemClick;  // the user selected a row
    ClickHandler DoubleClick;
    bool CanHaveFocus() const override { return true; }
    bool TakesLetters() const override { return true; }
    void DoubleClicked() override { Raise(DoubleClick); }

  private:
    void RowsChanged();
    std::vector<Row> rows;
    int selectedRow = -1;
    int updating = 0;
};

// A date picker (drop-down calendar) or, with upDown, a time picker. The user's changes raise
// Change; assignments in code do not. The value is a date without a time of day, or, if the format
// shows a time, a time of day in whole minutes without a date.
class DateTimePicker : public Control {
  public:
    DateTimePicker(Form* parent, const char* controlName)
        : Control(parent, ControlKind::DateTimePicker, controlName) {}
    Property<base::DateTime, Aspect::Value> value{*this};
    Property<std::string, Aspect::Format> customFormat{*this};  // "h:mm tt"; empty: short date
    Property<bool, Aspect::Format> upDown{*this, false};
    ClickHandler Change;
    bool CanHaveFocus() const override { return true; }
    bool TakesLetters() const override { return true; }
    void Picked(base::DateTime picked);  // called by Gestures only
};

class Image : public Control {
  public:
    Image(Form* parent, const char* controlName)
        : Control(parent, ControlKind::Image, controlName) {}
    Property<Picture, Aspect::Picture> picture{*this};
    // Name of a picture that is compiled into the program. The stage shows it while picture is
    // empty. The text must live as long as the image, as a literal does.
    const char* resourceName = "";
    bool sizeToPicture = false;  // set in Design only
    void AfterChange(Aspect aspect) override;
    int PointerRank() const override { return 2; }
};

enum class ShapeKind { Rectangle, RoundedRectangle, Circle };

class Shape : public Control {
  public:
    Shape(Form* parent, const char* controlName)
        : Control(parent, ControlKind::Shape, controlName) {}
    ShapeKind shape = ShapeKind::Rectangle;  // set in Design only
    Property<Color, Aspect::BackColor> fillColor{*this, white};
    Property<Color, Aspect::ForeColor> borderColor{*this, black};
    int PointerRank() const override { return 0; }
};

class Line : public Control {
  public:
    Line(Form* parent, const char* controlName) : Control(parent, ControlKind::Line, controlName) {}
    Property<Color, Aspect::ForeColor> color{*this, black};
    int PointerRank() const override { return 0; }
};

class Toolbar : public Control {
  public:
    Toolbar(Form* parent, const char* controlName)
        : Control(parent, ControlKind::Toolbar, controlName) {}
    // The texts must live as long as the toolbar, as literals do.
    struct Button {
        std::string_view key;  // unique
        std::string_view toolTip;
        std::string_view image;  // key in imageList
        bool enabled = true;
        bool operator==(const Button&) const = default;
    };
    const ImageList* imageList = nullptr;  // an image list of the same form; set in Design only
    Property<std::vector<Button>, Aspect::Items> buttons{*this};
    std::function<void(const std::string& key)> ButtonClick;
    bool CanHaveFocus() const override { return true; }
    void Pressed(const std::string& key);  // called by Gestures only
    // Enter presses the button that the user has reached with the arrow keys.
    bool TakesEnter() const override { return true; }
};

}  // namespace forms
