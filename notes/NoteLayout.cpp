#include "notes/NoteLayout.h"

#include <algorithm>
#include <string>

#include "app/Grid.h"
#include "notes/frmNote.h"

namespace {

using Grid::buttonHeight;
using Grid::gap;
using Grid::margin;

constexpr int heightWithPanel = 7335;
constexpr int heightWithoutPanel = 6300;
// The height of the panel and the margin below it.
constexpr int panelRoom = heightWithPanel - heightWithoutPanel;
constexpr int toolbarHeight = 480;
// The toolbar begins this much to the left of the text, so that its pictures begin above the left
// edge of the text.
constexpr int toolbarPlace = 60;
constexpr int textTop = toolbarHeight + 2 * toolbarPlace;
constexpr int smallestText = 600;
constexpr int alarmHeight = 1275;

}  // namespace

void NoteLayout::Design() {
    note.tlbMain.accessibleName = "Note";
    // Although the toolbar is above the text, the text has the focus first, and the Tab key reaches
    // the toolbar last.
    constexpr int lastTab = 100;
    note.tlbMain.tabIndex = lastTab;
    note.ilsMain.images = {
        {"save", "tb_save"}, {"kill", "tb_kill"}, {"print", "tb_print"},
        {"hide", "tb_hide"}, {"help", "tb_help"}, {"about", "tb_about"},
    };
    note.tlbMain.imageList = &note.ilsMain;
    note.tlbMain.buttons = {
        {"Save", "Click To Save This Note", "save"},
        {"Erase", "Click To Erase This Note", "kill"},
        {"Print", "Click To Print This Note", "print"},
        {"Hide", "Click To Hide This Note", "hide"},
        {"Help", "Jotwright Help Files", "help"},
        {"About", "About Jotwright", "about"},
    };
    note.fraCurrentTime.caption = "Current System Time";
    note.lblSysTime.container = &note.fraCurrentTime;
}

void NoteLayout::ShowPanel(bool show) {
    showsPanel = show;
    note.height = show ? heightWithPanel : heightWithoutPanel;
    note.cmdShowDateTime.caption = show ? "Hide &System Date/Time" : "Show &System Date/Time";
    Arrange();
}

void NoteLayout::Arrange() {
    if (!note.IsLoaded() || note.windowState() == forms::WindowState::Minimized) {
        return;
    }
    const int room = note.ScaleWidth() - 2 * margin;
    const int below = gap + alarmHeight + gap + buttonHeight + margin;
    const int panelTop =
        std::max(note.ScaleHeight() - (showsPanel ? panelRoom : 0), textTop + smallestText + below);
    const int buttonTop = panelTop - margin - buttonHeight;
    note.tlbMain.Place(margin - toolbarPlace, toolbarPlace, room, toolbarHeight);
    note.txtNote.Place(margin, textTop, room, panelTop - below - textTop);
    note.fraAlarm.Place(margin, buttonTop - gap - alarmHeight, room, alarmHeight);
    note.alarm.Arrange();
    note.cmdShowDateTime.Place(margin, buttonTop, 2700, buttonHeight);
    note.fraCurrentTime.Place(margin, panelTop, room, panelRoom - margin);
    note.lblSysTime.Place(Grid::frameSide, 270, room - 2 * Grid::frameSide, 2 * Grid::lineHeight);
}
