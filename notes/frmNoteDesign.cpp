#include <algorithm>

#include "app/Grid.h"
#include "forms/Application.h"
#include "notes/frmNote.h"

// The editor's controls and their places.

namespace {

constexpr int heightWithDateTime = 7335;
constexpr int heightWithoutDateTime = 6300;
constexpr const char* showDateTime = "Show &System Date/Time";
constexpr const char* hideDateTime = "Hide &System Date/Time";

using Grid::buttonHeight;
using Grid::gap;
using Grid::margin;
constexpr int lastTab = 100;
constexpr int toolbarHeight = 480;
// The pictures in its buttons stand above the edge of the text.
constexpr int toolbarPlace = 60;
constexpr int alarmHeight = 1275;
// The date-and-time panel with the margin below it: what the two heights of the window differ by.
constexpr int panelRoom = heightWithDateTime - heightWithoutDateTime;
constexpr int smallestText = 600;

// In the alarm frame.
constexpr int firstColumn = Grid::frameSide;
constexpr int dateWidth = 1740;
constexpr int secondColumn = firstColumn + dateWidth + gap;
constexpr int timeWidth = 1740;
constexpr int markerColumn = secondColumn + timeWidth + gap;
constexpr int markerSize = 240;
constexpr int thirdColumn = markerColumn + markerSize + gap;
constexpr int actionWidth = 2160;
constexpr int labelTop = Grid::frameTop;
constexpr int pickerTop = labelTop + Grid::lineHeight + Grid::smallGap;
constexpr int audioTop = labelTop + buttonHeight + 90;

}  // namespace

std::array<forms::Menu*, 6> frmNote::ColorItems() {
    return {&mnuWhite, &mnuRed, &mnuGreen, &mnuBlue, &mnuYellow, &mnuGray};
}

std::array<forms::Menu*, 4> frmNote::FontItems() { return {&mnu10, &mnu12, &mnu14, &mnu16}; }

void frmNote::Design() {
    caption = "Note";
    borderStyle = forms::BorderStyle::Sizable;
    // Narrower than the 514 pixels of 96 dpi at which the pointer reaches a message of the
    // notification area.
    width = 7200;
    height = heightWithDateTime;
    minimumWidth = 7200;
    minimumHeight = 5250;

    txtNote.multiLine = true;
    txtNote.toolTip = "  Double Click To View The  Menu.";
    txtNote.accessibleName = "Note text";
    txtNote.fontSize = 12;
    txtNote.backColor = forms::white;
    txtNote.foreColor = forms::black;
    txtNote.DoubleClick = [this] { PopupMenu(mnuPop); };
    txtNote.MouseUp = [this](int button, int, int) { txtNote_MouseUp(button); };

    DesignToolbar();
    DesignAlarm();
    DesignDateTime();
    DesignMenus();
    TrayIconRecord.owner = this;

    tmrNow.enabled = true;
    tmrNow.Tick = [this] { tmrNow_Timer(); };
    tmrNote.Tick = [this] { tmrNote_Timer(); };
    tmrLabel.interval = 750;
    tmrLabel.enabled = true;
}

void frmNote::DesignToolbar() {
    tlbMain.accessibleName = "Note";
    // It stands above the text, which has the focus first: the Tab key comes to it from the end.
    tlbMain.tabIndex = lastTab;
    for (const char* key : {"save", "kill", "print", "hide", "help", "about"}) {
        ilsMain.images.push_back({key, std::string("tb_") + key});
    }
    tlbMain.imageList = &ilsMain;
    tlbMain.buttons = {
        {"Save", "Click To Save This Note", "save"},
        {"Erase", "Click To Erase This Note", "kill"},
        {"Print", "Click To Print This Note", "print"},
        {"Hide", "Click To Hide This Note", "hide"},
        {"Help", "Jotwright Help Files", "help"},
        {"About", "About Jotwright", "about"},
    };
    tlbMain.ButtonClick = [this](const std::string& key) { tlbMain_ButtonClick(key); };
}

void frmNote::DesignAlarm() {
    fraAlarm.caption = "Schedule Alarm";
    lblDate.caption = "Select Alarm Date";
    lblDate.PlaceIn(fraAlarm, firstColumn, labelTop, dateWidth, Grid::lineHeight);
    dtDate.PlaceIn(fraAlarm, firstColumn, pickerTop, dateWidth, Grid::fieldHeight);
    dtDate.Change = [this] { NoteChanged = true; };
    lblTime.caption = "Select Alarm Time";
    lblTime.PlaceIn(fraAlarm, secondColumn, labelTop, timeWidth, Grid::lineHeight);
    dtTime.PlaceIn(fraAlarm, secondColumn, pickerTop, timeWidth, Grid::fieldHeight);
    dtTime.Change = [this] { NoteChanged = true; };

    shpCalBody.shape = forms::ShapeKind::Rectangle;
    shpCalBody.PlaceIn(fraAlarm, firstColumn, labelTop, dateWidth, 765);
    shpMonth.shape = forms::ShapeKind::Rectangle;
    shpMonth.fillColor = {255, 176, 160};
    shpMonth.PlaceIn(fraAlarm, firstColumn, labelTop, dateWidth, 315);
    lblCalMonth.alignment = forms::Alignment::Center;
    lblCalMonth.foreColor = forms::black;
    lblCalMonth.PlaceIn(fraAlarm, firstColumn + 60, labelTop + 45, dateWidth - 120,
                        Grid::lineHeight);
    lblDayYear.alignment = forms::Alignment::Center;
    lblDayYear.foreColor = forms::black;
    lblDayYear.fontSize = 10;
    lblDayYear.PlaceIn(fraAlarm, firstColumn + 60, labelTop + 390, dateWidth - 120, 285);
    shpClock.shape = forms::ShapeKind::RoundedRectangle;
    shpClock.PlaceIn(fraAlarm, secondColumn, labelTop + 150, timeWidth, 465);
    lblClock.alignment = forms::Alignment::Center;
    lblClock.foreColor = forms::black;
    lblClock.fontSize = 10;
    lblClock.PlaceIn(fraAlarm, secondColumn + 60, labelTop + 240, timeWidth - 120, 285);
    ShowCalendar(false);

    cmdAlarm.caption = "&Set Alarm";
    cmdAlarm.PlaceIn(fraAlarm, thirdColumn, labelTop, actionWidth, buttonHeight);
    cmdAlarm.Click = [this] { cmdAlarm_Click(); };
    imgAlarm.accessibleName = "Alarm Set";
    imgAlarm.visible = false;
    imgAlarm.PlaceIn(fraAlarm, markerColumn, labelTop + 60, markerSize, markerSize);
    chkAudioAlarm.caption = "Turn On Audio Alarm";
    chkAudioAlarm.PlaceIn(fraAlarm, thirdColumn, audioTop, actionWidth, Grid::choiceHeight);
    chkAudioAlarm.Click = [this] { chkAudioAlarm_Click(); };
    chkAudioAlarm.MouseUp = [this](int button, int, int) {
        if (button == forms::leftButton) {
            NoteChanged = true;
        }
    };
    imgBell.resourceName = "bell";
    imgBell.toolTip = "Audio Alarm Set";
    imgBell.accessibleName = "Audio Alarm Set";
    imgBell.visible = false;
    imgBell.PlaceIn(fraAlarm, markerColumn, audioTop + 15, markerSize, markerSize);
}

void frmNote::DesignDateTime() {
    cmdShowDateTime.Click = [this] { cmdShowDateTime_Click(); };
    fraCurrentTime.caption = "Current System Time";
    lblSysTime.container = &fraCurrentTime;
}

void frmNote::DesignMenus() {
    mnuPrint.Click = [this] { mnuPrint_Click(); };
    mnuKillNote.Click = [this] { mnuKill_Click(); };
    mnuAlarmStart.Click = [this] { mnuAlarmStart_Click(); };
    mnuAlarmStop.Click = [this] { mnuAlarmStop_Click(); };

    mnuPop.inMenuBar = false;
    const auto colors = ColorItems();
    for (std::size_t i = 0; i < colors.size(); ++i) {
        colors[i]->Click = [this, i] { mnuColorItem_Click(i + 1); };
    }
    mnuWhite.checked = true;
    constexpr std::array fontSizes{10, 12, 14, 16};
    const auto fonts = FontItems();
    for (std::size_t i = 0; i < fonts.size(); ++i) {
        fonts[i]->Click = [this, points = fontSizes[i]] { mnuFontItem_Click(points); };
    }
    mnu12.checked = true;
    mnuShow.Click = [this] { mnuShow_Click(); };
    mnuHide.Click = [this] { mnuHide_Click(); };
    mnuKill.Click = [this] { mnuKill_Click(); };
}

void frmNote::cmdShowDateTime_Click() {
    ShowDateTimePanel(cmdShowDateTime.caption() == showDateTime);
}

void frmNote::ShowDateTimePanel(bool show) {
    height = show ? heightWithDateTime : heightWithoutDateTime;
    cmdShowDateTime.caption = show ? hideDateTime : showDateTime;
    Arrange();
}

// The text takes what room there is. The date-and-time panel comes last and lies below the window's
// edge while it is not wanted.
void frmNote::Arrange() {
    if (!IsLoaded() || windowState() == forms::WindowState::Minimized) {
        return;
    }
    const bool showsPanel = cmdShowDateTime.caption() == hideDateTime;
    const int room = ScaleWidth() - 2 * margin;
    const int textTop = toolbarHeight + 2 * toolbarPlace;
    const int below = gap + alarmHeight + gap + buttonHeight + margin;
    const int panelTop =
        std::max(ScaleHeight() - (showsPanel ? panelRoom : 0), textTop + smallestText + below);
    tlbMain.Place(margin - toolbarPlace, toolbarPlace, room, toolbarHeight);
    txtNote.Place(margin, textTop, room, panelTop - below - textTop);
    fraAlarm.Place(margin, panelTop - margin - buttonHeight - gap - alarmHeight, room, alarmHeight);
    cmdShowDateTime.Place(margin, panelTop - margin - buttonHeight, 2700, buttonHeight);
    fraCurrentTime.Place(margin, panelTop, room, panelRoom - margin);
    lblSysTime.Place(Grid::frameSide, 270, room - 2 * Grid::frameSide, 2 * Grid::lineHeight);
}
