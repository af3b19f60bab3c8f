#pragma once

#include <memory>

#include "forms/Controls.h"
#include "forms/win32/Peer.h"

// The native side of each kind of control. Each class is in the source file with its name.
namespace forms::win32 {

std::unique_ptr<Peer> MakeLabelPeer(FormWindow& window, Label& label);
std::unique_ptr<Peer> MakeTextBoxPeer(FormWindow& window, TextBox& textBox);
std::unique_ptr<Peer> MakeButtonPeer(FormWindow& window, CommandButton& button);
std::unique_ptr<Peer> MakeCheckBoxPeer(FormWindow& window, CheckBox& box);
std::unique_ptr<Peer> MakeOptionButtonPeer(FormWindow& window, OptionButton& button);
std::unique_ptr<Peer> MakeFramePeer(FormWindow& window, Frame& frame);
std::unique_ptr<Peer> MakeComboBoxPeer(FormWindow& window, ComboBox& comboBox);
std::unique_ptr<Peer> MakeListViewPeer(FormWindow& window, ListView& listView);
std::unique_ptr<Peer> MakeDateTimePickerPeer(FormWindow& window, DateTimePicker& picker);
std::unique_ptr<Peer> MakeImagePeer(FormWindow& window, Image& image);
std::unique_ptr<Peer> MakeShapePeer(FormWindow& window, Shape& shape);
std::unique_ptr<Peer> MakeLinePeer(FormWindow& window, Line& line);
std::unique_ptr<Peer> MakeToolbarPeer(FormWindow& window, Toolbar& toolbar);

}  // namespace forms::win32
