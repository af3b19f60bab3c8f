#pragma once

#include <string>

namespace forms {

class Form;

// Commands of the help viewer, by the system's numbers.
enum class HelpCommand : int {
    Contents = 3,
    ForceFile = 9,  // shows the file, whichever file the viewer showed before
};

// The system's own dialogs, as a member of the form that uses them. Set the fields before showing a
// dialog.
class CommonDialog {
  public:
    CommonDialog(Form* parent, const char* dialogName) : name(dialogName), form(*parent) {}
    CommonDialog(const CommonDialog&) = delete;
    CommonDialog& operator=(const CommonDialog&) = delete;

    const char* const name;
    Form& form;

    std::string initialFolder;
    std::string filter;    // "Wav Files (*.wav)|*.wav|All Files (*.*)|*.*"
    std::string fileName;  // the full path that the user chose last

    std::string helpFile;  // full path
    HelpCommand helpCommand = HelpCommand::Contents;

    // Shows the dialog for opening a file. False if the user cancels; fileName is then unchanged.
    // Handlers may run while the dialog is open.
    bool ShowOpen();
    // Shows helpFile in the help viewer and returns at once.
    void ShowHelp() const;
};

}  // namespace forms
