#include "forms/Controls.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "forms/Form.h"
#include "forms/Runtime.h"

namespace forms {

void Label::AfterChange(Aspect aspect) {
    if (autoSize && (aspect == Aspect::Caption || aspect == Aspect::FontSize)) {
        SizeToText();
    }
}

void Label::SizeToText() {
    const Size size = Runtime::Current().stage.MeasureText(form, caption, fontSize);
    width = size.width;
    height = size.height;
}

TextBox::TextProperty& TextBox::TextProperty::operator=(std::string newText) {
    if ((*this)() != newText) {
        value = std::move(newText);
        owner.Changed(Aspect::Text);
    }
    return *this;
}

const std::string& TextBox::TextProperty::operator()() const {
    if (stale) {
        stale = false;
        value = Runtime::Current().stage.FetchText(owner);
    }
    return value;
}

void TextBox::AfterChange(Aspect aspect) {
    if (aspect == Aspect::Text) {
        Raise(Change);
    }
}

void TextBox::Typed() {
    text.stale = true;
    Raise(Change);
}

CheckBox::CheckValue& CheckBox::CheckValue::operator=(int newValue) {
    if (newValue < 0 || newValue > 2) {
        throw base::RuntimeError(base::ErrorNumber::InvalidPropertyValue);
    }
    Property::operator=(newValue);
    return *this;
}

void CheckBox::AfterChange(Aspect aspect) {
    if (aspect == Aspect::Value) {
        Raise(Click);
    }
}

void OptionButton::AfterChange(Aspect aspect) {
    if (aspect != Aspect::Value || !value()) {
        return;
    }
    for (Control* control : form.Controls()) {
        auto* other = dynamic_cast<OptionButton*>(control);
        if (other != nullptr && other != this && other->container == container) {
            other->value = false;
        }
    }
    Raise(Click);
}

bool OptionButton::IsTabStop() const {
    const OptionButton* stop = nullptr;
    for (const Control* control : form.focus.TabOrder()) {
        const auto* button = dynamic_cast<const OptionButton*>(control);
        const bool isOfGroup = button != nullptr && button->container == container;
        if (isOfGroup && button->CanTakeFocus() && (stop == nullptr || button->value())) {
            stop = button;
        }
    }
    return stop == this;
}

std::string ComboBox::Text() const {
    const int chosen = listIndex;
    return chosen < 0 ? std::string() : items.at(static_cast<std::size_t>(chosen));
}

void ComboBox::AfterChange(Aspect aspect) {
    if (aspect == Aspect::Value) {
        Raise(Click);
    }
}

void ComboBox::Selected(int index) {
    if (listIndex() != index) {
        listIndex = index;
    } else {
        Raise(Click);
    }
}

void ListBox::AfterChange(Aspect aspect) {
    if (aspect == Aspect::Value) {
        Raise(Click);
    }
}

void ListView::SetText(Row& row, const std::string& columnKey, const std::string& text) const {
    const auto column = std::find_if(columns.begin(), columns.end(), [&](const Column& candidate) {
        return candidate.key == columnKey;
    });
    if (column == columns.end()) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    row.texts.resize(std::max(row.texts.size(), columns.size()));
    row.texts[static_cast<std::size_t>(column - columns.begin())] = text;
}

void ListView::InsertRow(std::size_t position, Row row) {
    if (position > rows.size()) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    if (!row.key.empty() && std::any_of(rows.begin(), rows.end(), [&row](const Row& other) {
            return other.key == row.key;
        })) {
        throw base::RuntimeError(base::ErrorNumber::KeyNotUnique);
    }
    rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(position), std::move(row));
    if (selectedRow >= static_cast<int>(position)) {
        ++selectedRow;
    }
    RowsChanged();
}

void ListView::RemoveRow(std::size_t position) {
    if (position >= rows.size()) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(position));
    if (selectedRow == static_cast<int>(position)) {
        selectedRow = -1;
    } else if (selectedRow > static_cast<int>(position)) {
        --selectedRow;
    }
    RowsChanged();
}

void ListView::Clear() {
    rows.clear();
    selectedRow = -1;
    RowsChanged();
}

void ListView::Select(int position) {
    if (position != selectedRow) {
        selectedRow = position;
        Changed(Aspect::Value);
    }
}

void ListView::Selected(int position) {
    Select(position);
    if (position >= 0) {
        Raise(ItemClick);
    }
}

void ListView::EndUpdate() {
    if (--updating == 0) {
        RowsChanged();
    }
}

void ListView::RowsChanged() {
    if (updating == 0) {
        Changed(Aspect::Items);
    }
}

void DateTimePicker::Picked(base::DateTime picked) {
    if (value() != picked) {
        value = picked;
        Raise(Change);
    }
}

void Image::AfterChange(Aspect aspect) {
    if (aspect == Aspect::Picture && sizeToPicture && !picture().path.empty()) {
        width = picture().width;
        height = picture().height;
    }
}

void Toolbar::Pressed(const std::string& key) {
    const bool canPress =
        std::any_of(buttons().begin(), buttons().end(),
                    [&key](const Button& button) { return button.key == key && button.enabled; });
    if (canPress && ButtonClick) {
        ButtonClick(key);
    }
}

}  // namespace forms
