#pragma once

#include <array>
#include <string>

#include "alarms/AlarmSounds.h"
#include "forms/CommonDialog.h"
#include "forms/Form.h"

// Chooses the sound of all alarms: a built-in sound or a file of the user's. A click on a built-in
// sound takes effect at once, even if the user does not save it.
class frmAlarms : public forms::Form {
  public:
    frmAlarms() : Form("frmAlarms") {}

    forms::Frame fraAlarms{this, "fraAlarms"};
    forms::ControlArray<forms::OptionButton, 6> optAlarm{this, "optAlarm"};
    forms::TextBox txtMyWaveFilePath{this, "txtMyWaveFilePath"};
    forms::CommonDialog cdlMain{this, "cdlMain"};
    forms::CommandButton cmdMyWaveFile{this, "cmdMyWaveFile"};
    forms::CommandButton cmdTest{this, "cmdTest"};
    forms::CommandButton cmdSave{this, "cmdSave"};
    forms::CommandButton cmdCancel{this, "cmdCancel"};

    void Design() override;
    void Form_Load() override;
    forms::ShortcutTarget TargetOf(forms::Shortcut key) override;

  private:
    void SaveOwnFile();
    // If the setting cannot be written, reports the error and leaves the window open.
    void SaveAndClose(const std::string& path);
    void optAlarm_Click(int index);
    void cmdMyWaveFile_Click();
    void cmdTest_Click();
    void cmdSave_Click();
    void cmdCancel_Click();

    int lastClicked = 0;
    std::array<std::string, AlarmSounds::builtIns.size()> builtInPaths;  // set by optAlarm_Click()
};
