#include "notes/frmViewNotes.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "app/Grid.h"
#include "app/StandardCode.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "forms/Application.h"
#include "forms/Devices.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"
#include "notes/EditedNote.h"
#include "notes/NoteEditor.h"
#include "notes/NoteStore.h"
#include "notes/OpenNote.h"

using StandardCode::Shared;

namespace {

constexpr forms::Color red{255, 0, 0};

// Positions of the status pictures in the list's images, and of the title in a row's texts.
constexpr int alarmSet = 0;
constexpr int alarmNotSet = 1;
constexpr std::size_t titleColumn = 1;

// Five buttons, wide enough for the longest caption, are below the list.
constexpr int buttonWidth = 1500;
constexpr int buttonDistance = buttonWidth + Grid::gap;
constexpr int listWidth = 4 * buttonDistance + buttonWidth;
constexpr int buttonTop = 4860;

forms::ListView::Row RowOf(const StandardCode::NoteRecord& note) {
    if (note.AlarmState == "0") {
        return {
            .key = note.Title, .image = alarmNotSet, .texts = {"", note.Title, "Alarm Not Set"}};
    }
    forms::Locale& locale = *forms::Machine().locale;
    return {.key = note.Title,
            .image = alarmSet,
            .texts = {"", note.Title,
                      locale.ShortDate(note.AlarmDate) + ' ' + locale.TimeText(note.AlarmTime)}};
}

std::string TotalText() { return "Total Notes: " + std::to_string(Shared().NoteCount); }

}  // namespace

void frmViewNotes::Design() {
    caption = "Notes Control Panel";
    centerOnScreen = true;
    innerWidth = listWidth + 2 * Grid::margin;
    innerHeight = buttonTop + Grid::buttonHeight + Grid::margin;

    lblTotalNotes.caption = "Total Notes: 0";
    lblTotalNotes.foreColor = forms::black;
    lblTotalNotes.Place(Grid::margin, Grid::margin, listWidth, Grid::lineHeight);
    lvwNotes.columns = {
        {"Status", 780, "status"}, {"Note Title", 4320, "title"}, {"Alarm Time", 2490, "time"}};
    ilsNotes.images = {{"set", "alarmset"}, {"not set", "alarmnotset"}};
    lvwNotes.imageList = &ilsNotes;
    lvwNotes.accessibleName = "Notes";
    lvwNotes.emptyText = "There are no notes yet. Click 'New' to write the first one.";
    lvwNotes.Place(Grid::margin, 495, listWidth, 3870);
    lvwNotes.ItemClick = [this] { EnableActions(true); };
    lvwNotes.DoubleClick = [this] { cmdEdit_Click(); };
    lvwNotes.MouseUp = [this](int button, int, int) { lvwNotes_MouseUp(button); };
    lstNotes.visible = false;
    lstNotes.Click = [this] { EnableActions(true); };
    lblSelNote.caption = "Highlight any note and click 'Erase' to remove that note.";
    lblSelNote.Place(Grid::margin, 4485, listWidth, Grid::lineHeight);
    DesignButtons();

    mnuPop.inMenuBar = false;
    mnuEditNote.Click = [this] { cmdEdit_Click(); };
    mnuEraseNote.Click = [this] { cmdRemove_Click(); };
    mnuOpenAll.Click = [this] { cmdOpenAll_Click(); };
}

void frmViewNotes::DesignButtons() {
    cmdOpenAll.caption = "&Open All Notes";
    cmdOpenAll.Click = [this] { cmdOpenAll_Click(); };
    cmdNew.caption = "&New";
    cmdNew.Click = [this] { cmdNew_Click(); };
    cmdEdit.caption = "&Edit";
    cmdEdit.isDefault = true;
    cmdEdit.Click = [this] { cmdEdit_Click(); };
    cmdRemove.caption = "&Erase";
    cmdRemove.Click = [this] { cmdRemove_Click(); };
    cmdOK.caption = "&Close";
    cmdOK.isCancel = true;
    cmdOK.Click = [this] { cmdOK_Click(); };
    int place = Grid::margin;
    for (forms::CommandButton* button : {&cmdOpenAll, &cmdNew, &cmdEdit, &cmdRemove, &cmdOK}) {
        button->Place(place, buttonTop, buttonWidth, Grid::buttonHeight);
        place += buttonDistance;
    }
}

void frmViewNotes::Form_Load() {
    icon = forms::LoadPicture(forms::ApplicationPath("\\logo.ico"));
    lstNotes.items = std::vector<std::string>{};
    // A damaged note ends the loading and is put aside. So load again, without that note.
    if (!FillList()) {
        StandardCode::LoadNotesArray();
    }
    ShowLimit();
    if (lstNotes.items().empty()) {
        EnableActions(false);
    } else {
        lstNotes.listIndex = 0;
    }
    listIsFilled = true;
    FocusList();
}

void frmViewNotes::Form_Activate() {
    if (isListingPutOff) {
        ListNotes();
    }
}

forms::ShortcutTarget frmViewNotes::TargetOf(forms::Shortcut key) {
    if (key == forms::Shortcut::Delete && lvwNotes.HasFocus()) {
        return &cmdRemove;
    }
    return key == forms::Shortcut::ControlN ? forms::ShortcutTarget(&cmdNew)
                                            : forms::ShortcutTarget();
}

void frmViewNotes::ShowLimit() {
    const bool full = Shared().NoteCount == StandardCode::maximumNotes;
    lblTotalNotes.foreColor = full ? red : forms::black;
    lblTotalNotes.caption = TotalText() + (full ? " ( Maximum Reached )" : "");
    cmdNew.enabled = !full;
}

bool frmViewNotes::FillList() {
    const bool isComplete = StandardCode::LoadNotesArray();
    ListNotes();
    return isComplete;
}

void frmViewNotes::ListNotes() {
    std::vector<forms::ListView::Row> rows;
    std::vector<std::string> files;
    std::set<std::string> keys;
    NoteStore& store = StandardCode::Notes();
    isListingPutOff = !IsVisible() && store.ListedFiles().size() > StandardCode::maximumNotes;
    if (isListingPutOff) {
        return;
    }
    for (const forms::FileEntry& file : store.ListedFiles()) {
        try {
            forms::ListView::Row row = RowOf(store.Read(file).record);
            // Two files may hold the same title, but the keys of rows must be unique.
            if (!keys.insert(row.key).second) {
                row.key.clear();
            }
            rows.push_back(std::move(row));
            files.push_back(file.name);
        } catch (const base::RuntimeError&) {
            // If a file cannot be read, it gets no row. LoadNotesArray() reports the error.
        }
    }
    const bool hadSelection = lvwNotes.SelectedRow() >= 0;
    const std::string selected = hadSelection ? SelectedFile() : std::string();
    const bool isSame = rows == lvwNotes.Rows() && files == rowFiles;
    rowFiles = std::move(files);
    if (isSame) {
        return;
    }
    lvwNotes.BeginUpdate();
    lvwNotes.Clear();
    for (forms::ListView::Row& row : rows) {
        lvwNotes.AddRow(std::move(row));
    }
    lvwNotes.EndUpdate();
    if (hadSelection) {
        SelectFile(selected);
    }
}

void frmViewNotes::SelectFile(const std::string& file) {
    const auto row = std::find(rowFiles.begin(), rowFiles.end(), file);
    if (row == rowFiles.end()) {
        EnableActions(false);
    } else {
        lvwNotes.Select(static_cast<int>(row - rowFiles.begin()));
    }
}

void frmViewNotes::ShowNotesArray() {
    ShowLimit();
    lvwNotes.enabled = Shared().NoteCount > 0;
    if (listIsFilled) {
        ListNotes();
    }
}

void frmViewNotes::EnableActions(bool enable) {
    cmdEdit.enabled = enable;
    cmdRemove.enabled = enable;
}

void frmViewNotes::FocusList() {
    if (lvwNotes.enabled()) {
        lvwNotes.SetFocus();
    } else {
        cmdNew.SetFocus();
    }
}

std::size_t frmViewNotes::SelectedPlace() const {
    if (lvwNotes.SelectedRow() < 0) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return static_cast<std::size_t>(lvwNotes.SelectedRow());
}

const std::string& frmViewNotes::SelectedTitle() const {
    return lvwNotes.Rows()[SelectedPlace()].texts[titleColumn];
}

const std::string& frmViewNotes::SelectedFile() const { return rowFiles.at(SelectedPlace()); }

void frmViewNotes::EraseSelectedNote() {
    const std::size_t place = SelectedPlace();
    const std::string file = rowFiles.at(place);
    lvwNotes.RemoveRow(place);
    rowFiles.erase(rowFiles.begin() + static_cast<std::ptrdiff_t>(place));
    StandardCode::Notes().Erase(file);
    StandardCode::LoadNotesArray();
}

void frmViewNotes::lvwNotes_MouseUp(int button) {
    if (button == forms::rightButton) {
        PopupMenu(mnuPop);
    }
}

void frmViewNotes::cmdOpenAll_Click() {
    // Copy the list first, because handlers that Show() runs may open and close windows.
    std::vector<std::shared_ptr<forms::Form>> windows;
    for (const EditedNote* note : StandardCode::Notes().OpenNotes()) {
        windows.push_back(note->Editor().Window().shared_from_this());
    }
    for (const auto& window : windows) {
        window->Show();
        window->windowState = forms::WindowState::Normal;
    }
}

void frmViewNotes::cmdNew_Click() {
    StandardCode::Signals().FocusNoteTitle.Raise();
    Unload();
}

void frmViewNotes::cmdEdit_Click() {
    if (lvwNotes.SelectedRow() < 0) {
        return;
    }
    const std::string title = SelectedTitle();
    const std::string file = SelectedFile();
    for (int slot = 1; slot <= StandardCode::maximumNotes; ++slot) {
        // Several notes may have this title, so compare the file, too.
        if (Shared().NotesArray[slot].Title == title &&
            StandardCode::Notes().OfSlot(slot).file == file) {
            StandardCode::OpenNote(slot);
            return;
        }
    }
}

void frmViewNotes::cmdRemove_Click() {
    try {
        const std::string title = SelectedTitle();
        const forms::BoxResult answer =
            forms::MsgBox("Would you like to erase        \r\n           " +
                              forms::Machine().locale->ToUpper(title) + "?       ",
                          {.buttons = forms::BoxButtons::YesNo, .icon = forms::BoxIcon::Critical},
                          "Deleting Note");
        if (answer == forms::BoxResult::Yes) {
            EraseSelectedNote();
        }
        EnableActions(false);
        FocusList();
    } catch (const base::RuntimeError&) {
        forms::MsgBox("Please Select A File To Remove.", {.icon = forms::BoxIcon::Critical},
                      "Error Occured Removing Note");
    }
}

void frmViewNotes::cmdOK_Click() { Unload(); }

namespace StandardCode {

namespace {

void ReloadControlPanel() {
    if (auto* panel = forms::LoadedDefault<frmViewNotes>()) {
        panel->Unload();
    }
    forms::Default<frmViewNotes>().Load();
}

void UnloadControlPanelIfVisible() {
    auto* panel = forms::LoadedDefault<frmViewNotes>();
    if (panel != nullptr && panel->IsVisible()) {
        panel->Unload();
    }
}

void ActOnControlPanel(SharedSignals::PanelAction action) {
    // While the program ends, every note closes. Do not reload the panel for each of them.
    if (Notes().IsQuiet()) {
        return;
    }
    switch (action) {
        case SharedSignals::PanelAction::Reload:
            ReloadControlPanel();
            break;
        case SharedSignals::PanelAction::ReloadAndShow:
            ReloadControlPanel();
            forms::Default<frmViewNotes>().Show();
            break;
        case SharedSignals::PanelAction::Show:
            forms::Default<frmViewNotes>().Show();
            break;
        case SharedSignals::PanelAction::UnloadIfVisible:
            UnloadControlPanelIfVisible();
            break;
        case SharedSignals::PanelAction::LoadAndUnload:
            // Loading a loaded panel would not rebuild the array.
            ReloadControlPanel();
            forms::Default<frmViewNotes>().Unload();
            break;
    }
}

}  // namespace

void ConnectControlPanel() {
    Signals().ControlPanel.Subscribe(ActOnControlPanel);
    Signals().NotesArrayLoaded.Subscribe([] {
        if (auto* panel = forms::LoadedDefault<frmViewNotes>()) {
            panel->ShowNotesArray();
        }
    });
}

}  // namespace StandardCode
