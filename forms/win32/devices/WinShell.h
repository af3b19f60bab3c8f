#pragma once

#include "forms/Devices.h"

namespace forms::win32 {

class WinShell : public Shell {
  public:
    int Open(const std::string& document, const std::string& workingFolder) override;
    // Does nothing where the help file is missing. Where the system has no viewer for it, what is
    // shown is the system's own affair.
    void ShowHelp(const std::string& helpFile, int command) override;
};

}  // namespace forms::win32
