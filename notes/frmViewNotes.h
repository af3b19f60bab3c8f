#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "forms/Form.h"

// The notes control panel. It lists every saved note with its alarm, and opens and erases notes.
// While the panel is loaded, even if it is hidden, its list is updated whenever the notes array is
// rebuilt.
class frmViewNotes : public forms::Form {
  public:
    frmViewNotes() : Form("frmViewNotes") {}

    forms::Label lblTotalNotes{this, "lblTotalNotes"};
    forms::ListView lvwNotes{this, "lvwNotes"};
    forms::ImageList ilsNotes{this, "ilsNotes"};
    // Unused, but kept on purpose: see docs/decisions/kept-unreachable.md.
    forms::ListBox lstNotes{this, "lstNotes"};
    forms::Label lblSelNote{this, "lblSelNote"};
    forms::CommandButton cmdOpenAll{this, "cmdOpenAll"};
    forms::CommandButton cmdNew{this, "cmdNew"};
    forms::CommandButton cmdEdit{this, "cmdEdit"};
    forms::CommandButton cmdRemove{this, "cmdRemove"};
    forms::CommandButton cmdOK{this, "cmdOK"};

    forms::Menu mnuPop{this, "mnuPop"};
    forms::Menu mnuEditNote{this, mnuPop, "mnuEditNote", "Edit Selected Note"};
    forms::Menu mnuEraseNote{this, mnuPop, "mnuEraseNote", "Erase Selected Note"};
    forms::Menu mnuOpenAll{this, mnuPop, "mnuOpenAll", "Open All Notes"};

    void Design() override;
    void Form_Load() override;
    void Form_Activate() override;
    forms::ShortcutTarget TargetOf(forms::Shortcut key) override;

    // Called when the notes array has been rebuilt. Shows the count and the notes. Raises
    // RuntimeErrors.
    void ShowNotesArray();
    // Shows the count, and enables New unless the maximum is reached.
    void ShowLimit();

  private:
    void DesignButtons();
    // Loads and lists the notes. Returns the result of LoadNotesArray().
    bool FillList();
    // Shows a row for each note. If there are more files than slots and the panel is hidden, leaves
    // this to Form_Activate, because each file without a slot must be read to fill its row.
    void ListNotes();
    void SelectFile(const std::string& file);
    void EnableActions(bool enable);
    // Moves the focus to the list, or to New if there are no notes.
    void FocusList();
    // The index, the title and the file of the selected row. RuntimeError 9 if no row is selected.
    std::size_t SelectedPlace() const;
    const std::string& SelectedTitle() const;
    const std::string& SelectedFile() const;
    void EraseSelectedNote();

    bool listIsFilled = false;
    bool isListingPutOff = false;       // Form_Activate must call ListNotes()
    std::vector<std::string> rowFiles;  // the name of each row's note file

    void lvwNotes_MouseUp(int button);
    void cmdOpenAll_Click();
    void cmdNew_Click();
    void cmdEdit_Click();
    void cmdRemove_Click();
    void cmdOK_Click();
};

namespace StandardCode {

// Connects the default control panel to the shared signals, so that windows of lower layers can
// reach it. Call it once, before the first window is loaded.
void ConnectControlPanel();

}  // namespace StandardCode
