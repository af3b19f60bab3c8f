#include "forms/Gestures.h"

#include <functional>

#include "forms/Runtime.h"
#include "forms/Services.h"

namespace forms::gestures {

namespace {

void Raise(Form& form, const std::function<void()>& handler) {
    if (handler) {
        Runtime::Current().Dispatch(&form, handler);
    }
}

}  // namespace

bool CanUse(const Control& control) {
    return control.form.IsLoaded() && control.form.IsUsable() && control.IsEffectivelyVisible() &&
           control.IsEffectivelyEnabled();
}

bool CanChoose(const Menu& menu) {
    for (const Menu* entry = &menu; entry != nullptr; entry = entry->parent) {
        if (!entry->enabled || !entry->visible) {
            return false;
        }
    }
    return menu.form.IsLoaded();
}

void Click(Control& control) {
    if (CanUse(control)) {
        Raise(control.form, [&control] { control.Clicked(); });
    }
}

void DoubleClick(Control& control) {
    if (CanUse(control)) {
        Raise(control.form, [&control] { control.DoubleClicked(); });
    }
}

void ClickToolbar(Toolbar& toolbar, const std::string& key) {
    if (CanUse(toolbar)) {
        Raise(toolbar.form, [&toolbar, key] { toolbar.Pressed(key); });
    }
}

void Typed(TextBox& textBox) {
    Raise(textBox.form, [&textBox] { textBox.Typed(); });
}

void Select(ComboBox& comboBox, int index) {
    if (CanUse(comboBox)) {
        Raise(comboBox.form, [&comboBox, index] { comboBox.Selected(index); });
    }
}

void Select(ListView& listView, int row) {
    if (CanUse(listView)) {
        Raise(listView.form, [&listView, row] { listView.Selected(row); });
    }
}

void Pick(DateTimePicker& picker, base::DateTime value) {
    if (CanUse(picker)) {
        Raise(picker.form, [&picker, value] { picker.Picked(value); });
    }
}

void Focus(Control& control) {
    if (CanUse(control)) {
        control.form.focus.Adopt(control);
    }
}

void MouseUp(Control& control, int button, int x, int y) {
    if (CanUse(control) && control.MouseUp) {
        Raise(control.form, [&control, button, x, y] { control.MouseUp(button, x, y); });
    }
}

void MouseUp(Form& form, int button, int x, int y) {
    if (form.IsUsable()) {
        Raise(form, [&form, button, x, y] { form.Form_MouseUp(button, x, y); });
    }
}

void MouseMove(Form& form, int button, int x, int y) {
    if (form.IsUsable()) {
        Raise(form, [&form, button, x, y] { form.RaiseMouseMove(button, x, y, false); });
    }
}

void TrayMessage(Form& form, int message) {
    if (form.IsLoaded()) {
        Raise(form,
              [&form, message] { form.RaiseMouseMove(0, message * TwipsPerPixelX(), 0, true); });
    }
}

void Choose(Menu& menu) {
    if (CanChoose(menu)) {
        Raise(menu.form, menu.Click);
    }
}

void Activate(Form& form) {
    if (form.IsLoaded() && form.IsUsable()) {
        Raise(form, [&form] { Runtime::Current().FormActivated(form); });
    }
}

void Close(Form& form, UnloadMode mode) {
    if (form.IsLoaded()) {
        Raise(form, [&form, mode] { form.Unload(mode); });
    }
}

void Resize(Form& form, Rect bounds, WindowState windowState) {
    if (!form.IsLoaded()) {
        return;
    }
    if (windowState == WindowState::Normal) {
        form.left.Adopt(bounds.left);
        form.top.Adopt(bounds.top);
        form.width.Adopt(bounds.width);
        form.height.Adopt(bounds.height);
    }
    form.windowState.Adopt(windowState);
    if (windowState != WindowState::Minimized) {
        Raise(form, [&form] { form.Form_Resize(); });
    }
}

void EndSession() {
    Runtime& runtime = Runtime::Current();
    runtime.MarkSessionEnding();
    const auto forms = runtime.LoadedForms();
    for (const auto& form : forms) {
        Close(*form, UnloadMode::SessionEnd);
    }
    // A form is still loaded if its Unload was waiting for the user. There will be no answer.
    runtime.Dispatch(nullptr, [&runtime] { runtime.End(); });
}

}  // namespace forms::gestures
