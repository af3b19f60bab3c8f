#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/DateTime.h"
#include "base/Numbers.h"
#include "forms/Devices.h"
#include "forms/Stage.h"

// Functions for handlers. They use the devices of Machine().
namespace forms {

class Form;

base::DateTime Now();  // date and time; in a polling timer, those of the round of ticks, see Timer
base::DateTime Today();  // date only
// A path below the application folder, for example "C:\\Jotwright" + "\\logo.ico". relative begins
// with a backslash.
std::string ApplicationPath(const std::string& relative);

// UserNumbers returns the number format that the user chose in the system's settings. The other
// functions call those of base with this format.
base::NumberFormat UserNumbers();
bool IsNumeric(std::string_view text);
std::int16_t ToInteger16(std::string_view text);

Picture LoadPicture(const std::string& path);
void SetMousePointer(MousePointer pointer);
// Twips to a pixel at 96 dpi. The value does not depend on the scale of a monitor: a stage converts
// its own pixels to twips.
constexpr int TwipsPerPixelX() { return 15; }
// Begins a document of the default printer. Handlers may run meanwhile, because some printers show
// a dialog. False if the user cancels it. Raises RuntimeErrors.
bool BeginPrinting();
// Shows the system's dialog for opening a file. Empty if the user cancels. Handlers may run while
// the dialog is open.
std::optional<std::string> ShowOpenDialog(Form& form, const FileDialogRequest& request);

}  // namespace forms
