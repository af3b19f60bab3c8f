#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/DateTime.h"
#include "base/Numbers.h"
#include "forms/Devices.h"
#include "forms/Stage.h"

// Small services that handlers use like statements, all on the devices of Machine().
namespace forms {

class Form;

base::DateTime Now();    // date and time; in a tick of a polling timer that tick's, see Timer
base::DateTime Today();  // date only
// "C:\\Jotwright" + "\\logo.ico": a path below the application folder. relative begins with a
// backslash.
std::string ApplicationPath(const std::string& relative);

// The format that the user chose in the system's settings, and base's functions with it.
base::NumberFormat UserNumbers();
bool IsNumeric(std::string_view text);
std::int16_t ToInteger16(std::string_view text);

Picture LoadPicture(const std::string& path);
void SetMousePointer(MousePointer pointer);
// Pixels are counted at 96 dpi, whatever the scale of a monitor; a stage converts its own to twips.
constexpr int TwipsPerPixelX() { return 15; }
// The system's dialog for opening a file; empty when the user cancels. Pumps.
std::optional<std::string> ShowOpenDialog(Form& form, const FileDialogRequest& request);

}  // namespace forms
