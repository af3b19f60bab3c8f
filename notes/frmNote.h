#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "app/StandardCode.h"
#include "forms/Form.h"
#include "notes/EditedNote.h"
#include "notes/NoteAlarm.h"
#include "notes/NoteEditor.h"
#include "notes/NoteLayout.h"
#include "notes/NoteStyle.h"

// The editor of one note: its text, colour, font size and alarm. The caption is the note's title.
// OpenEditor.h opens editors. When the window closes, it saves the note without a question. But
// while ControlPanelMode is set, it asks whether to save changes.
//
// The default instance is never shown and holds no note. It saves nothing, asks nothing and deletes
// nothing.
class frmNote : public forms::Form, public NoteEditor {
  public:
    frmNote() : Form("frmNote") {}

    forms::TextBox txtNote{this, "txtNote"};
    forms::Toolbar tlbMain{this, "tlbMain"};
    forms::ImageList ilsMain{this, "ilsMain"};

    forms::Frame fraAlarm{this, "fraAlarm"};
    forms::Label lblDate{this, "lblDate"};
    forms::DateTimePicker dtDate{this, "dtDate"};
    forms::Label lblTime{this, "lblTime"};
    forms::DateTimePicker dtTime{this, "dtTime"};
    forms::Shape shpCalBody{this, "shpCalBody"};
    forms::Shape shpMonth{this, "shpMonth"};
    forms::Label lblCalMonth{this, "lblCalMonth"};
    forms::Label lblDayYear{this, "lblDayYear"};
    forms::Shape shpClock{this, "shpClock"};
    forms::Label lblClock{this, "lblClock"};
    forms::CheckBox chkAudioAlarm{this, "chkAudioAlarm"};
    forms::Image imgBell{this, "imgBell"};
    forms::CommandButton cmdAlarm{this, "cmdAlarm"};
    forms::Image imgAlarm{this, "imgAlarm"};

    forms::CommandButton cmdShowDateTime{this, "cmdShowDateTime"};
    forms::Frame fraCurrentTime{this, "fraCurrentTime"};
    forms::Label lblSysTime{this, "lblSysTime"};

    forms::Timer tmrNow{this, "tmrNow", forms::TimerPhase::ClockSecond};
    forms::Timer tmrNote{this, "tmrNote", forms::TimerPhase::ClockSecond};
    // Unused, but kept on purpose: see docs/decisions/kept-unreachable.md.
    forms::Timer tmrLabel{this, "tmrLabel", forms::TimerPhase::ClockSecond};

    forms::Menu mnuFile{this, "mnuFile", "File"};
    forms::Menu mnuPrint{this, mnuFile, "mnuPrint", "Print Note"};
    forms::Menu sepFile{this, mnuFile, "sepFile", "-"};
    forms::Menu mnuKillNote{this, mnuFile, "mnuKillNote", "Erase Note"};
    forms::Menu mnuAlarm{this, "mnuAlarm", "Alarm"};
    forms::Menu mnuAlarmStart{this, mnuAlarm, "mnuAlarmStart", "Start Alarm"};
    forms::Menu mnuAlarmStop{this, mnuAlarm, "mnuAlarmStop", "Stop Alarm"};
    forms::Menu mnuPop{this, "mnuPop", "Options"};
    forms::Menu mnuColor{this, mnuPop, "mnuColor", "Background Color"};
    forms::Menu mnuWhite{this, mnuColor, "mnuWhite", "White"};
    forms::Menu mnuRed{this, mnuColor, "mnuRed", "Red"};
    forms::Menu mnuGreen{this, mnuColor, "mnuGreen", "Green"};
    forms::Menu mnuBlue{this, mnuColor, "mnuBlue", "Blue"};
    forms::Menu mnuYellow{this, mnuColor, "mnuYellow", "Yellow"};
    forms::Menu mnuGray{this, mnuColor, "mnuGray", "Gray"};
    forms::Menu mnuFont{this, mnuPop, "mnuFont", "Font Size"};
    forms::Menu mnu10{this, mnuFont, "mnu10", "10 point"};
    forms::Menu mnu12{this, mnuFont, "mnu12", "12 point"};
    forms::Menu mnu14{this, mnuFont, "mnu14", "14 point"};
    forms::Menu mnu16{this, mnuFont, "mnu16", "16 point"};
    forms::Menu sep1{this, mnuPop, "sep1", "-"};
    forms::Menu mnuShow{this, mnuPop, "mnuShow", "Show Me"};
    forms::Menu mnuHide{this, mnuPop, "mnuHide", "Hide Me"};
    forms::Menu mnuKill{this, mnuPop, "mnuKill", "Erase Note"};

    void Design() override;
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Resize() override;
    void Form_QueryUnload(bool& cancel, forms::UnloadMode mode) override;
    void Form_Unload(bool& cancel) override;
    void Form_MouseUp(int button, int x, int y) override;
    // Also handles the callback of an icon in the notification area: then x, in pixels, is the
    // number of the message.
    void Form_MouseMove(int button, int x, int y) override;
    forms::ShortcutTarget TargetOf(forms::Shortcut key) override;

    // Saves the note and rebuilds the notes array. If saving fails, shows the error and returns
    // false.
    bool WriteNote();
    forms::Form& Window() override { return *this; }
    StandardCode::NoteRecord Record() override;
    bool Shows(const StandardCode::NoteRecord& record) override;
    void SaveBeforeTheEnd() override;

    // Shows all fields except title and colour. alarmIcon is used only if the note's alarm is set;
    // see NoteAlarm::Icon().
    void Fill(const StandardCode::NoteRecord& record, const forms::Picture& alarmIcon);
    // Shows the unsaved note of a program that was killed, and brings the window to the front. For
    // alarmIcon, see Fill().
    void TakeRecovered(const RecoveredNote& recovered, const forms::Picture& alarmIcon);

    // The window deletes this icon but never adds it. Unused, but kept on purpose: see
    // docs/decisions/kept-unreachable.md.
    forms::TrayRecord TrayIconRecord;
    NoteAlarm alarm{*this};
    NoteStyle style{*this};
    EditedNote edited{*this};

  private:
    void DesignMenus();
    bool CloseThroughPanel();
    bool CloseSilently();

    void tlbMain_ButtonClick(const std::string& key);
    void SaveThisNote();
    void cmdAlarm_Click();
    void tmrNow_Timer();
    void mnuAlarmStart_Click();
    void mnuAlarmStop_Click();
    void mnuShow_Click();
    void mnuKill_Click();

    bool NoteChanged = false;
    bool NoteErased = false;
    bool isErasingConfirmed = false;
    std::size_t TextLengthAtActivate = 0;
    NoteLayout layout{*this};
};

namespace StandardCode {

// The window of an open note. frmNote is the only class that implements NoteEditor.
inline frmNote& WindowOf(const EditedNote& note) {
    return static_cast<frmNote&>(note.Editor().Window());
}

}  // namespace StandardCode
