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

// The date and time. In the handler of a polling timer, the time at which the round of ticks began,
// until the handler lets events in (see Timer).
base::DateTime Now();
base::DateTime Today();  // date only
// A path below the application folder, for example "C:\\Jotwright" + "\\logo.ico". relative begins
// with a backslash.
std::string ApplicationPath(const std::string& relative);

// UserNumbers returns the number format that the user chose in the system's settings. IsNumeric and
// ToInteger16 call the functions of base with this format.
base::NumberFormat UserNumbers();
bool IsNumeric(std::string_view text);
std::int16_t ToInteger16(std::string_view text);

Picture LoadPicture(const std::string& path);
void SetMousePointer(MousePointer pointer);
// Twips to a pixel at 96 dpi. The value does not depend on the scale of a monitor: a stage converts
// its own pixels to twips.
constexpr int TwipsPerPixelX() { return 15; }
// Begins a document on the default printer. Some printers show a dialog, and handlers may run while
// it is open. Returns false if the user cancels the dialog. RuntimeError 482 if the printer fails.
bool BeginPrinting();
// Shows the system's dialog for opening a file, and returns the full path of the chosen file. Empty
// if the user cancels. Handlers may run while the dialog is open.
std::optional<std::string> ShowOpenDialog(Form& form, const FileDialogRequest& request);

}  // namespace forms
