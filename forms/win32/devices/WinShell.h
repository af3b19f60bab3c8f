#pragma once

#include <string>

#include "forms/Devices.h"

namespace forms::win32 {

class WinShell : public Shell {
  public:
    // Searches for the system's viewer of help files.
    WinShell();
    explicit WinShell(bool systemHasHelpViewer) : hasHelpViewer(systemHasHelpViewer) {}

    int Open(const std::string& document, const std::string& workingFolder) override;
    // Shows the file in the help viewer. If the system has no viewer, the viewer refuses the file
    // or the file is missing, opens a page in the browser instead: the file beside helpFile with
    // the same name and the extension html. If that fails but helpFile exists, calls the system's
    // viewer after all, because that program may at least tell the user that it cannot show help
    // files.
    void ShowHelp(const std::string& helpFile, int command) override;
    void PointToThisProgram(const std::string& shortcut) override;

    // Whether the program at this path can show help files. Newer systems have a program of the
    // same name that only says that it cannot.
    static bool IsHelpViewer(const std::wstring& program);
    // Whether the viewer refuses this file, because it lies on a network, was downloaded, or has
    // letters in its path that the system's code page lacks. The viewer then shows an error, and
    // reports success.
    static bool IsRefusedByViewer(const std::wstring& helpFile);

  private:
    bool hasHelpViewer;
};

}  // namespace forms::win32
