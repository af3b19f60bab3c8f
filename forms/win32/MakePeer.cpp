#include "forms/win32/PaintedPeer.h"
#include "forms/win32/Peers.h"

namespace forms::win32 {

std::unique_ptr<Peer> MakePeer(FormWindow& window, Control& control) {
    switch (control.kind) {
        case ControlKind::Label:
            return MakeLabelPeer(window, static_cast<Label&>(control));
        case ControlKind::TextBox:
            return MakeTextBoxPeer(window, static_cast<TextBox&>(control));
        case ControlKind::CommandButton:
            return MakeButtonPeer(window, static_cast<CommandButton&>(control));
        case ControlKind::CheckBox:
            return MakeCheckBoxPeer(window, static_cast<CheckBox&>(control));
        case ControlKind::OptionButton:
            return MakeOptionButtonPeer(window, static_cast<OptionButton&>(control));
        case ControlKind::Frame:
            return MakeFramePeer(window, static_cast<Frame&>(control));
        case ControlKind::ComboBox:
            return MakeComboBoxPeer(window, static_cast<ComboBox&>(control));
        case ControlKind::ListBox:
            return std::make_unique<PaintedPeer>(window, control);
        case ControlKind::ListView:
            return MakeListViewPeer(window, static_cast<ListView&>(control));
        case ControlKind::DateTimePicker:
            return MakeDateTimePickerPeer(window, static_cast<DateTimePicker&>(control));
        case ControlKind::Image:
            return MakeImagePeer(window, static_cast<Image&>(control));
        case ControlKind::Shape:
            return MakeShapePeer(window, static_cast<Shape&>(control));
        case ControlKind::Line:
            return MakeLinePeer(window, static_cast<Line&>(control));
        case ControlKind::Toolbar:
            return MakeToolbarPeer(window, static_cast<Toolbar&>(control));
    }
    return nullptr;
}

}  // namespace forms::win32
