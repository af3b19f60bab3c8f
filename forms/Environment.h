#pragma once

#include <optional>
#include <string>

#include "forms/Devices.h"
#include "forms/Stage.h"

// Small services that handlers use like statements.
namespace forms {

class Form;

Picture LoadPicture(const std::string& path);
void SetMousePointer(MousePointer pointer);
// Pixels are counted at 96 dpi, whatever the scale of a monitor; a stage converts its own to twips.
constexpr int TwipsPerPixelX() { return 15; }
// The system's dialog for opening a file; empty when the user cancels. Pumps.
std::optional<std::string> ShowOpenDialog(Form& form, const FileDialogRequest& request);

}  // namespace forms
