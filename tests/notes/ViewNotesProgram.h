#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/StandardCode.h"
#include "notes/NoteFile.h"
#include "notes/NoteStore.h"
#include "notes/RestoreNotes.h"
#include "notes/frmNote.h"
#include "notes/frmViewNotes.h"
#include "tests/support/OpenNotes.h"
#include "tests/support/ProductProgram.h"

namespace testing_support {

// The control panel and the editors, without the main window.
class ViewNotesProgram : public ProductProgram {
  protected:
    const std::string folder = applicationFolder + "\\Notes";

    void SetUp() override {
        ProductProgram::SetUp();
        files.PutFolder(folder);
        StandardCode::ConnectControlPanel();
    }

    void PutMany(int count) {
        for (int i = 1; i <= count; ++i) {
            PutNote(Note("Note " + std::to_string(1000 + i)));
        }
    }

    void Open() {
        Start([] {
            StandardCode::Shared().ControlPanelMode = true;
            forms::Default<frmViewNotes>().Show();
        });
    }
    static frmViewNotes& Panel() { return forms::Default<frmViewNotes>(); }
    static bool IsOpen() { return forms::LoadedDefault<frmViewNotes>() != nullptr; }
    static std::vector<std::string> Titles() {
        std::vector<std::string> titles;
        for (const auto& row : Panel().lvwNotes.Rows()) {
            titles.push_back(row.texts.at(1));
        }
        return titles;
    }
    void Raise(StandardCode::SharedSignals::PanelAction action) {
        Start([action] { StandardCode::Signals().ControlPanel.Raise(action); });
    }
    // Closes an editor without a question. These tests are not about closing.
    void CloseNote(forms::Form& note) {
        StandardCode::Shared().ControlPanelMode = false;
        Start([&note] { note.Unload(); });
    }
    void CloseNotes() {
        const auto loaded = runtime->LoadedForms();
        for (const auto& form : loaded) {
            if (dynamic_cast<frmNote*>(form.get()) != nullptr) {
                CloseNote(*form);
            }
        }
    }

    void ExpectNothingSelected() {
        ExpectMessage("Please Select A File To Remove.", "Error Occured Removing Note",
                      forms::BoxIcon::Critical);
    }
};

}  // namespace testing_support
