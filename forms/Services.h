#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/DateTime.h"
#include "base/Numbers.h"
#include "forms/Devices.h"
#include "forms/Stage.h"

// Functions that handlers call, all on the devices of Machine().
namespace forms {

class Form;

base::DateTime Now();    // date and time; of the round of ticks in a polling timer, see Timer
base::DateTime Today();  // date only
// "C:\\Jotwright" + "\\logo.ico": a path below the application folder. relative begins with a
// backslash.
std::string ApplicationPath(const std::string& relative);

// The number format that the user chose in the system's settings, and base's functions with it.
base::NumberFormat UserNumbers();
bool IsNumeric(std::string_view text);
std::int16_t ToInteger16(std::string_view text);

Picture LoadPicture(const std::string& path);
void SetMousePointer(MousePointer pointer);
// Of a pixel at 96 dpi, at every scale of a monitor: a stage converts its own pixels to twips.
constexpr int TwipsPerPixelX() { return 15; }
// Shows the system's dialog for opening a file; empty if the user cancels. Handlers may run while
// it is open.
std::optional<std::string> ShowOpenDialog(Form& form, const FileDialogRequest& request);

}  // namespace forms
