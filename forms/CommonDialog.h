#pragma once

#include <string>

namespace forms {

class Form;

// Commands of the help viewer. The values are the system's numbers.
enum class HelpCommand : int {
    Contents = 3,
    ForceFile = 9,  // shows this file even if the viewer showed another file before
};

// The system's own dialogs. A form that uses them has a CommonDialog as a member. Set the fields
// before showing a dialog.
class CommonDialog {
  public:
    CommonDialog(Form* parent, const char* dialogName) : name(dialogName), form(*parent) {}
    CommonDialog(const CommonDialog&) = delete;
    CommonDialog& operator=(const CommonDialog&) = delete;

    const char* const name;
    Form& form;

    std::string initialFolder;
    std::string filter;    // "Wav Files (*.wav)|*.wav|All Files (*.*)|*.*"
    std::string fileName;  // full path of the last file that the user chose

    std::string helpFile;  // full path
    HelpCommand helpCommand = HelpCommand::Contents;

    // Shows the dialog for opening a file. Returns false, and leaves fileName unchanged, if the
    // user cancels. Handlers may run while the dialog is open.
    bool ShowOpen();
    // Shows helpFile in the help viewer and returns at once.
    void ShowHelp() const;
};

}  // namespace forms
