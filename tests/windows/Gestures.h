#pragma once

#include <string>
#include <vector>

#include "tests/windows/Program.h"

// Gestures that consist of several messages. Positions of menu entries count from 0, without the
// separators.
namespace driver {

using MenuPath = std::vector<int>;

// Chooses from the open menu by keyboard, and waits until the menu has closed. Any window of the
// program can be the receiver of the keys.
void ChooseFromOpenMenu(const Program& program, const Window& receiver, const MenuPath& path);
// The first number is the position in the menu bar.
void ChooseFromMenuBar(const Program& program, const Window& window, const MenuPath& path);
// Opens the menu of a control with the right button and chooses from it.
void ChooseFromPopup(const Program& program, const Window& control, const MenuPath& path);
void CloseMenu(const Program& program, const Window& receiver);

// Presses and releases a mouse button in the middle of a control.
void RightClick(const Window& control);
void DoubleClick(const Window& control);

// Types a date or time field by field. The pickers use the formats of the United States; in the
// test kit, a test is skipped if the user has others.
void PickDate(const Window& picker, int year, int month, int day);
void PickTime(const Window& picker, int hour, int minute);
SYSTEMTIME Picked(const Window& picker);

// Clicks the toolbar's button with this number, from 0.
void ClickToolbar(const Window& toolbar, int number);

int RowCount(const Window& list);
std::string CellText(const Window& list, int row, int column);
void SelectRow(const Window& list, int row);
void DoubleClickRow(const Window& list, int row);
void RightClickRow(const Window& list, int row);
std::string ColumnHeading(const Window& list, int column);
// The number of the picture in the first column of a row.
int RowPicture(const Window& list, int row);

void Select(const Window& comboBox, int index);

// Sends a request to the host; see scripts/run-windows-tests.
void AskHost(const std::string& line);
// Saves a picture of the whole display under this name.
void TakePicture(const std::string& name);
// Saves a picture of a part of the display.
void TakePicture(const std::string& name, const RECT& part);

// Posts to the owner of the program's icon in the notification area the messages of a gesture on
// that icon.
namespace tray {
void Click(const Window& owner);
void DoubleClick(const Window& owner);
void RightClick(const Window& owner);
// Whether the notification area holds an icon of this window, which may have been closed.
bool HasIcon(const Window& owner);
}  // namespace tray

}  // namespace driver
