#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/StandardCode.h"
#include "notes/CreateNote.h"
#include "notes/NoteFile.h"
#include "notes/NoteStore.h"
#include "notes/OpenNote.h"
#include "notes/RestoreNotes.h"
#include "notes/frmNote.h"
#include "tests/support/OpenNotes.h"
#include "tests/support/ProductProgram.h"

namespace testing_support {

// Note windows without the main window and the control panel. Signals to these two windows are
// recorded.
class NoteProgram : public ProductProgram {
  protected:
    using PanelAction = StandardCode::SharedSignals::PanelAction;

    void SetUp() override {
        ProductProgram::SetUp();
        Listen();
    }

    void RestartProgram() {
        Restart();
        Listen();
    }

    // Makes a note with this title and types the text, as the user would.
    frmNote& MakeNote(const std::string& title, const std::string& text = "") {
        Start([&title] { StandardCode::CreateNote(title); });
        frmNote& note = Editor(title);
        user->Type(note.txtNote, text);
        return note;
    }

    // Opens a saved note through the control panel, as the user would.
    frmNote& OpenThroughPanel(const StandardCode::NoteRecord& record) {
        PutNote(record);
        StandardCode::Shared().ControlPanelMode = true;
        Start([&record] {
            StandardCode::LoadNotesArray();
            for (int slot = 1; slot <= StandardCode::Shared().NoteCount; ++slot) {
                if (StandardCode::Shared().NotesArray[slot].Title == record.Title) {
                    StandardCode::OpenNote(slot);
                }
            }
        });
        panel.clear();
        return Editor(record.Title);
    }

    // The open editor with this title. If there is none, fails the test and returns the hidden one.
    frmNote& Editor(const std::string& title) {
        if (auto* note = FindOpenNote(title)) {
            return *note;
        }
        ADD_FAILURE() << "no editor is open for " << title;
        return forms::Default<frmNote>();
    }

    // The saved note. If there is no file, fails the test and returns an empty record.
    StandardCode::NoteRecord Saved(const std::string& title) {
        StandardCode::NoteRecord record;
        if (const auto bytes = FileOf(title)) {
            NoteFile::Decode(*bytes, record);
        } else {
            ADD_FAILURE() << title << " is not saved";
        }
        return record;
    }

    std::vector<PanelAction> panel;
    int helpShown = 0;
    int aboutShown = 0;

  private:
    void Listen() {
        auto& signals = StandardCode::Signals();
        signals.ControlPanel.Subscribe([this](PanelAction action) { panel.push_back(action); });
        signals.ShowHelp.Subscribe([this] { ++helpShown; });
        signals.ShowAbout.Subscribe([this] { ++aboutShown; });
    }
};

}  // namespace testing_support
