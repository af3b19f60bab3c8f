#pragma once

#include <string>
#include <vector>

#include "tests/windows/Program.h"

// What takes more than one message. Places of menu entries count from 0, without the separators.
namespace driver {

using MenuPath = std::vector<int>;

// Chooses by keyboard from the menu that is open, and waits until it has closed. Any window of the
// program can be the receiver of the keys.
void ChooseFromOpenMenu(const Program& program, const Window& receiver, const MenuPath& path);
// The first number is the place in the menu bar.
void ChooseFromMenuBar(const Program& program, const Window& window, const MenuPath& path);
// Opens the menu of the right button over a control and chooses from it.
void ChooseFromPopup(const Program& program, const Window& control, const MenuPath& path);
void CloseMenu(const Program& program, const Window& receiver);

// Presses and releases a mouse button in the middle of a control.
void RightClick(const Window& control);
void DoubleClick(const Window& control);

// Typed field by field; the pickers show dates and times as the United States write them.
void PickDate(const Window& picker, int year, int month, int day);
void PickTime(const Window& picker, int hour, int minute);
SYSTEMTIME Picked(const Window& picker);

// The toolbar's button with this number, from 0.
void PressToolbar(const Window& toolbar, int number);

int RowCount(const Window& list);
std::string CellText(const Window& list, int row, int column);
void ClickRow(const Window& list, int row);
void DoubleClickRow(const Window& list, int row);
void RightClickRow(const Window& list, int row);
std::string ColumnHeading(const Window& list, int column);
// The number of the picture at the start of a row.
int RowPicture(const Window& list, int row);

void Choose(const Window& comboBox, int index);

// Has something done outside of Windows; see scripts/run-windows-tests.
void AskHost(const std::string& line);
// Input that comes from outside, as a person's hands give it: the arguments of an xdotool command.
void UseHands(const std::string& xdotoolArguments);
// Keeps a picture of the display under this name.
void TakePicture(const std::string& name);
// Of a part of the display.
void TakePicture(const std::string& name, const RECT& part);

// What the program's icon in the notification area reports to the window that owns it.
namespace tray {
void LeftClick(const Window& owner);
void DoubleClick(const Window& owner);
void RightClick(const Window& owner);
// Whether the notification area holds the owner's icon. Told of windows that have gone as well.
bool HasIcon(const Window& owner);
}  // namespace tray

}  // namespace driver
