#include "app/frmOptions.h"

#include <array>
#include <cstddef>

#include "app/Grid.h"
#include "app/Settings.h"
#include "app/StandardCode.h"
#include "app/StartupLink.h"
#include "base/RuntimeError.h"
#include "forms/Devices.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"

namespace {

// Selects the button with this index. Selects no button if the index is out of range, which happens
// only if the store was edited by hand.
template <std::size_t count>
void SelectOption(forms::ControlArray<forms::OptionButton, count>& buttons, int index) {
    for (forms::OptionButton& button : buttons) {
        if (button.index == index) {
            button.value = true;
        }
    }
}

// Shows a setting in a check box. The store may hold any number. A number that is not a state of a
// check box does not switch the option on, so the box is shown empty.
void ReadInto(forms::CheckBox& box, Settings::Number setting, int current) {
    constexpr int grayed = 2;
    const int value = setting.ReadOr(static_cast<std::int16_t>(current));
    box.value = value >= 0 && value <= grayed ? value : 0;
}

void Store(Settings::Number setting, const forms::CheckBox& box) {
    setting.Write(static_cast<std::int16_t>(box.value()));
}

}  // namespace

void frmOptions::Design() {
    caption = "Note Options";
    centerOnScreen = true;
    innerWidth = 8700;
    innerHeight = 5850;
    DesignGeneral();
    DesignFont();
    DesignColor();

    cmdApply.caption = "A&pply";
    cmdApply.isDefault = true;
    cmdApply.Place(5880, 5295, Grid::buttonWidth, Grid::buttonHeight);
    cmdApply.Click = [this] { cmdApply_Click(); };
    cmdCancel.caption = "&Cancel";
    cmdCancel.isCancel = true;
    cmdCancel.Place(7260, 5295, Grid::buttonWidth, Grid::buttonHeight);
    cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frmOptions::DesignGeneral() {
    fraGeneral.caption = "General Options";
    fraGeneral.Place(Grid::margin, Grid::margin, 8340, 2220);
    chkNoteLoops.caption =
        "Play Note Alarms Continuously.                   ( Alarms will play one time if "
        "unchecked )";
    chkShowDateTime.caption = "Hide System Date And Time In Note Editor";
    chkCooKooOn.caption = "Start CooKoo Clock When Jotwright Starts";
    chkIsService.caption =
        "Start Jotwright when Windows starts.    (Option Available For Windows XP only!)";
    chkIsService.enabled = false;
    chkIsService.Click = [this] { chkIsService_Click(); };
    chkShowOnTop.caption = "Show Jotwright Notes On Top Of All Windows";
    int place = Grid::frameTop;
    for (forms::CheckBox* box :
         {&chkNoteLoops, &chkShowDateTime, &chkCooKooOn, &chkIsService, &chkShowOnTop}) {
        box->PlaceIn(fraGeneral, Grid::frameSide, place, 7980, Grid::choiceHeight);
        place += 360;
    }
}

void frmOptions::DesignFont() {
    static constexpr std::array<const char*, 4> captions{"10 point", "12 point", "14 point",
                                                         "16 point"};
    fraFont.caption = "Default Font Size";
    fraFont.Place(Grid::margin, 2520, 4110, 2655);
    int place = Grid::frameTop;
    for (forms::OptionButton& button : optDefaultFont) {
        button.caption = captions[static_cast<std::size_t>(button.index)];
        button.PlaceIn(fraFont, Grid::frameSide, place, 1800, Grid::choiceHeight);
        button.Click = [this, index = button.index] { optDefaultFont_Click(index); };
        place += Grid::choiceDistance;
    }
}

void frmOptions::DesignColor() {
    static constexpr std::array<const char*, 6> captions{"White", "Red",    "Green",
                                                         "Blue",  "Yellow", "Gray"};
    fraDefaultColor.caption = " Default Note Color";
    fraDefaultColor.Place(4410, 2520, 4110, 2655);
    int place = Grid::frameTop;
    for (forms::OptionButton& button : optDefaultColor) {
        const auto at = static_cast<std::size_t>(button.index);
        const forms::Color color = StandardCode::noteColors[at].back;
        button.caption = captions[at];
        button.backColor = color;
        button.PlaceIn(fraDefaultColor, Grid::frameSide, place, 1800, Grid::choiceHeight);
        button.Click = [this, index = button.index] { optDefaultColor_Click(index); };
        shpColor[at].fillColor = color;
        shpColor[at].PlaceIn(fraDefaultColor, 2100, place, 1830, Grid::choiceHeight);
        place += Grid::choiceDistance;
    }
}

void frmOptions::Form_Load() {
    if (std::stod(GetWinVersion()) > 5.0) {
        chkIsService.enabled = true;
    }
    icon = forms::LoadPicture(forms::ApplicationPath("\\logo.ico"));

    ReadInto(chkShowOnTop, Settings::windowOnTop, chkShowOnTop.value);
    ReadInto(chkCooKooOn, Settings::startCookoo, chkCooKooOn.value);
    StandardCode::Shared().StartCookooFlag = chkCooKooOn.value == 1 ? 1 : 0;
    ReadInto(chkShowDateTime, Settings::showDateTime, chkShowDateTime.value);
    colorCode = Settings::defaultColor.Read();
    fontCode = Settings::defaultFontSize.Read();
    noteLoops = Settings::noteLoops.ReadOr(noteLoops);
    chkNoteLoops.value = noteLoops != 0 ? 1 : 0;
    // If the store has DefaultColor but not IsService, the box shows the colour code. That happens
    // only if the store was edited by hand, because the program writes both together.
    ReadInto(chkIsService, Settings::isService, colorCode);
    SelectOption(optDefaultColor, colorCode);
    SelectOption(optDefaultFont, fontCode);
}

std::string frmOptions::GetWinVersion() const {
    const std::uint32_t version = forms::Machine().system->Version();
    const std::uint32_t hundredths = (version & 0xff) * 100 + ((version >> 8) & 0xff);
    const std::string fraction = std::to_string(hundredths % 100);
    return std::to_string(hundredths / 100) + (fraction.size() < 2 ? ".0" : ".") + fraction;
}

void frmOptions::WriteSettings() {
    Settings::defaultColor.Write(colorCode);
    Settings::defaultFontSize.Write(fontCode);
    Store(Settings::windowOnTop, chkShowOnTop);
    Store(Settings::startCookoo, chkCooKooOn);
    Store(Settings::noteLoops, chkNoteLoops);
    Store(Settings::isService, chkIsService);
    Store(Settings::showDateTime, chkShowDateTime);
}

void frmOptions::chkIsService_Click() {
    if (chkIsService.value == 0) {
        startWithWindows = 0;
    } else if (chkIsService.value == 1) {
        startWithWindows = 1;
    }
}

void frmOptions::optDefaultFont_Click(int index) { fontCode = static_cast<std::int16_t>(index); }

void frmOptions::optDefaultColor_Click(int index) { colorCode = static_cast<std::int16_t>(index); }

void frmOptions::cmdApply_Click() {
    try {
        WriteSettings();
        StartupLink::Update(startWithWindows == 1);
    } catch (const base::RuntimeError&) {
        forms::MsgBox("Unable to create startup link.       ",
                      {.icon = forms::BoxIcon::Exclamation}, "Startup Link Error");
        return;
    }
    Unload();
}

void frmOptions::cmdCancel_Click() { Unload(); }
