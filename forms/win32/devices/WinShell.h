#pragma once

#include <string>

#include "forms/Devices.h"

namespace forms::win32 {

class WinShell : public Shell {
  public:
    // Looks for the system's viewer of help files.
    WinShell();
    explicit WinShell(bool systemHasHelpViewer) : hasHelpViewer(systemHasHelpViewer) {}

    int Open(const std::string& document, const std::string& workingFolder) override;
    // Where the system has no viewer for help files, or the file is missing, opens in the browser
    // the page that lies beside it with the same topics: its name is the file's, but for the
    // extension html. Does nothing where both are missing.
    void ShowHelp(const std::string& helpFile, int command) override;

    // Whether this program shows help files. Systems that no longer do have a stand-in of the same
    // name, which says just that.
    static bool IsHelpViewer(const std::wstring& program);

  private:
    bool hasHelpViewer;
};

}  // namespace forms::win32
