#include "alarms/frmAlarms.h"

#include <algorithm>

#include "alarms/Bell.h"
#include "app/Grid.h"
#include "app/Settings.h"
#include "app/StandardCode.h"
#include "base/RuntimeError.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"

using forms::MsgBox;
using StandardCode::Shared;

namespace {

// Index of the option button for the user's own file.
constexpr std::size_t ownFile = AlarmSounds::builtIns.size();

}  // namespace

void frmAlarms::Design() {
    caption = "Choose An Alarm";
    borderStyle = forms::BorderStyle::Dialog;
    showInTaskbar = false;
    centerOnScreen = true;
    innerWidth = 5400;
    innerHeight = 4005;

    fraAlarms.caption = "Choose An Alarm";
    fraAlarms.Place(Grid::margin, Grid::margin, 5040, 3150);
    int optionTop = Grid::frameTop;
    for (std::size_t index = 0; index < optAlarm.size(); ++index) {
        forms::OptionButton& option = optAlarm[index];
        option.caption = index == ownFile ? std::string("Selected .wav File")
                                          : AlarmSounds::builtIns[index].caption;
        option.PlaceIn(fraAlarms, Grid::frameSide, optionTop, 4680, Grid::choiceHeight);
        option.Click = [this, index] { optAlarm_Click(static_cast<int>(index)); };
        optionTop += Grid::choiceDistance;
    }
    txtMyWaveFilePath.accessibleName = "Path of the selected .wav file";
    // Aligned with the caption of the option button above it.
    txtMyWaveFilePath.PlaceIn(fraAlarms, 450, 2595 + Grid::fieldInButton, 3030, Grid::fieldHeight);
    cmdMyWaveFile.caption = "&Browse";
    cmdMyWaveFile.PlaceIn(fraAlarms, 3600, 2595, Grid::buttonWidth, Grid::buttonHeight);
    cmdMyWaveFile.Click = [this] { cmdMyWaveFile_Click(); };

    cmdTest.caption = "&Test";
    cmdTest.Place(1200, 3450, Grid::buttonWidth, Grid::buttonHeight);
    cmdTest.Click = [this] { cmdTest_Click(); };
    cmdSave.caption = "&Save";
    cmdSave.isDefault = true;
    cmdSave.Place(2580, 3450, Grid::buttonWidth, Grid::buttonHeight);
    cmdSave.Click = [this] { cmdSave_Click(); };
    cmdCancel.caption = "&Cancel";
    cmdCancel.isCancel = true;
    cmdCancel.Place(3960, 3450, Grid::buttonWidth, Grid::buttonHeight);
    cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frmAlarms::Form_Load() {
    Shared().AlarmSoundPath = Settings::alarm.Read();
    const std::string& path = Shared().AlarmSoundPath;
    const auto paths = AlarmSounds::BuiltInPaths();
    if (path.empty()) {
        optAlarm[0].value = true;  // its handler sets the path
        return;
    }
    const auto found = std::find(paths.begin(), paths.end(), path);
    const auto index = static_cast<std::size_t>(found - paths.begin());
    optAlarm[index].value = true;
    if (index == ownFile) {
        txtMyWaveFilePath.text = path;
    }
}

void frmAlarms::optAlarm_Click(int index) {
    const auto place = static_cast<std::size_t>(index);
    lastClicked = index;
    cmdMyWaveFile.enabled = place == ownFile;
    // The user's own file must be chosen before it can be saved.
    cmdSave.enabled = place != ownFile;
    optAlarm[place].value = true;
    builtInPaths = AlarmSounds::BuiltInPaths();
    if (place != ownFile) {
        Shared().AlarmSoundPath = builtInPaths[place];
    }
}

void frmAlarms::cmdMyWaveFile_Click() {
    cmdSave.enabled = true;
    cdlMain.initialFolder = "c:\\";
    cdlMain.filter = "Wav Files (*.wav)|*.wav|All Files (*.*)|*.*";
    if (cdlMain.ShowOpen()) {
        txtMyWaveFilePath.text = cdlMain.fileName;
    }
}

void frmAlarms::cmdTest_Click() {
    if (optAlarm[ownFile].value) {
        if (txtMyWaveFilePath.text().empty()) {
            MsgBox("Please Select A .wav File To Play", {.icon = forms::BoxIcon::Information},
                   "No File To Test");
            txtMyWaveFilePath.SetFocus();
            return;
        }
        Shared().AlarmSoundPath = txtMyWaveFilePath.text;
    }
    Bell::RingBehindBox(Shared().AlarmSoundPath,
                        "        Sampling " +
                            optAlarm[static_cast<std::size_t>(lastClicked)].caption() +
                            "          ",
                        {}, "Jotwright Audio Alarm");
}

forms::ShortcutTarget frmAlarms::TargetOf(forms::Shortcut key) {
    return key == forms::Shortcut::ControlS ? forms::ShortcutTarget(&cmdSave)
                                            : forms::ShortcutTarget();
}

void frmAlarms::cmdSave_Click() {
    const auto selected =
        std::find_if(optAlarm.begin(), optAlarm.end(),
                     [](const forms::OptionButton& option) { return option.value(); });
    const auto index = static_cast<std::size_t>(std::distance(optAlarm.begin(), selected));
    if (index < ownFile) {
        SaveAndClose(builtInPaths[index]);
    } else if (index == ownFile) {
        SaveOwnFile();
    }
}

void frmAlarms::SaveOwnFile() {
    const std::string path = txtMyWaveFilePath.text;
    if (path.empty()) {
        MsgBox("Please Select A .wav File", {.icon = forms::BoxIcon::Information},
               "No File Selected");
        txtMyWaveFilePath.SetFocus();
        return;
    }
    if (!AlarmSounds::HasWaveExtension(path)) {
        MsgBox("The File Selected Was Not A Valid .wav File!       ", {},
               "Error Loading .wav File");
        txtMyWaveFilePath.text = "";
        return;
    }
    SaveAndClose(path);
}

void frmAlarms::SaveAndClose(const std::string& path) {
    try {
        StandardCode::SaveAlarmSetting(path);
    } catch (const base::RuntimeError& error) {
        MsgBox(std::to_string(error.number()) + " - " + error.description() +
                   "\r\n\r\nThe alarm sound has not been saved.",
               {.icon = forms::BoxIcon::Exclamation}, "Error Saving Alarm Sound");
        return;
    }
    Unload();
}

void frmAlarms::cmdCancel_Click() { Unload(); }
