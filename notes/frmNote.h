#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "alarms/DueRules.h"
#include "app/StandardCode.h"
#include "forms/Form.h"
#include "notes/Recovery.h"

// The editor of one note: its text, colour, font size and alarm. The caption is the note's title,
// from which the name of its file follows. A restored or new note saves silently when its window
// closes; one that is opened while the control panel is the way into the editors asks.
//
// An editor that was given no title holds no note: it saves, asks and deletes nothing. The default
// instance, which is never shown, is one.
class frmNote : public forms::Form {
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
    forms::CommandButton cmdAlarm{this, "cmdAlarm"};
    forms::Image imgAlarm{this, "imgAlarm"};
    forms::CheckBox chkAudioAlarm{this, "chkAudioAlarm"};
    forms::Image imgBell{this, "imgBell"};

    forms::CommandButton cmdShowDateTime{this, "cmdShowDateTime"};
    forms::Frame fraCurrentTime{this, "fraCurrentTime"};
    forms::Label lblSysTime{this, "lblSysTime"};

    forms::Timer tmrNow{this, "tmrNow", forms::TimerPhase::ClockSecond};
    forms::Timer tmrNote{this, "tmrNote", forms::TimerPhase::ClockSecond};
    forms::Timer tmrLabel{this, "tmrLabel", forms::TimerPhase::ClockSecond};

    forms::Menu mnuFile{this, "mnuFile"};
    forms::Menu mnuPrint{this, mnuFile, "mnuPrint"};
    forms::Menu sepFile{this, mnuFile, "sepFile"};
    forms::Menu mnuKillNote{this, mnuFile, "mnuKillNote"};
    forms::Menu mnuAlarm{this, "mnuAlarm"};
    forms::Menu mnuAlarmStart{this, mnuAlarm, "mnuAlarmStart"};
    forms::Menu mnuAlarmStop{this, mnuAlarm, "mnuAlarmStop"};
    forms::Menu mnuPop{this, "mnuPop"};
    forms::Menu mnuColor{this, mnuPop, "mnuColor"};
    forms::Menu mnuWhite{this, mnuColor, "mnuWhite"};
    forms::Menu mnuRed{this, mnuColor, "mnuRed"};
    forms::Menu mnuGreen{this, mnuColor, "mnuGreen"};
    forms::Menu mnuBlue{this, mnuColor, "mnuBlue"};
    forms::Menu mnuYellow{this, mnuColor, "mnuYellow"};
    forms::Menu mnuGray{this, mnuColor, "mnuGray"};
    forms::Menu mnuFont{this, mnuPop, "mnuFont"};
    forms::Menu mnu10{this, mnuFont, "mnu10"};
    forms::Menu mnu12{this, mnuFont, "mnu12"};
    forms::Menu mnu14{this, mnuFont, "mnu14"};
    forms::Menu mnu16{this, mnuFont, "mnu16"};
    forms::Menu sep1{this, mnuPop, "sep1"};
    forms::Menu mnuShow{this, mnuPop, "mnuShow"};
    forms::Menu mnuHide{this, mnuPop, "mnuHide"};
    forms::Menu mnuKill{this, mnuPop, "mnuKill"};

    void Design() override;
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Resize() override;
    void Form_QueryUnload(bool& cancel, forms::UnloadMode mode) override;
    void Form_Unload(bool& cancel) override;
    void Form_MouseUp(int button, int x, int y) override;
    // Written as the callback of an icon in the notification area, whose messages arrive as x.
    void Form_MouseMove(int button, int x, int y) override;

    // Makes this the editor of the note with this title; once, after loading.
    void SetTitle(const std::string& title);
    bool HoldsNote() const { return holdsNote; }

    // Saves the note and rebuilds the notes array. Errors are shown.
    void WriteNote();
    // Saves the note because the program is about to end, whatever the user would have been asked.
    // What cannot be saved stays in a recovery copy.
    void SaveBeforeTheEnd();

    // The program leaves although saving failed: whether the text is safe in its recovery copy,
    // from which the next start brings it back.
    bool KeepForNextStart();

    // Paints the text box and checks the entry of the colour menu with this number, 1 to 6.
    void ApplyColor(StandardCode::NoteColor color, std::size_t colorIndex);
    // 10, 12, 14 or 16 points; any other size changes nothing.
    void ApplyFontSize(int points);
    // Presents the pickers' date and time as an alarm that is set. RuntimeError 53 where the alarm
    // icon is missing.
    void PresentAlarm();

    // The text that the note's file holds: what differs from it is unsaved.
    void MarkSaved(const std::string& text) { savedText = text; }
    // Puts the unsaved text of a program that was killed into the editor and brings that up.
    void TakeRecovered(const RecoveredText& recovered);
    bool IsRecovered() const { return isRecovered; }

    // Only ever deleted: the window adds no icon of its own.
    forms::TrayRecord TrayIconRecord;

  private:
    void DesignMenus();
    void DesignToolbar();
    void DesignAlarm();
    void DesignDateTime();
    void ShowDateTimePanel(bool show);
    void Arrange();
    std::array<forms::Menu*, 6> ColorItems();
    std::array<forms::Menu*, 4> FontItems();

    StandardCode::NoteRecord Record();
    void SaveFile();
    void CloseThroughPanel(bool& cancel);
    void CloseSilently(bool& cancel);
    void KeepOpen(bool& cancel);
    void KeepRecoveryCopy();
    void ForgetTitle();

    bool IsAlarmSet() const;
    // Gives the button the caption that is the alarm's state.
    void ShowAlarmState(const char* buttonCaption);
    static bool IsBlinking();
    // A blinking that does not take place must not wake the machine: its timer has no handler.
    void FollowBlinking();
    void ComputeAlarmValues();
    // Until the alarm is near, its test has no tick of its own.
    void RestUntilTheAlarm();
    void SetAlarm();
    void ClearAlarm();
    void Fire();
    void ShowPickers(bool show);
    void ShowCalendar(bool show);
    void EnablePickers(bool enable);
    void FillCalendar();

    void txtNote_MouseUp(int button);
    void tlbMain_ButtonClick(const std::string& key);
    void SaveThisNote();
    void chkAudioAlarm_Click();
    void cmdAlarm_Click();
    void cmdShowDateTime_Click();
    void tmrNow_Timer();
    void tmrNote_Timer();
    void tmrLabel_Timer();
    void mnuPrint_Click();
    void mnuAlarmStart_Click();
    void mnuAlarmStop_Click();
    void mnuColorItem_Click(std::size_t colorIndex);
    void mnuFontItem_Click(int points);
    void mnuShow_Click();
    bool mnuHide_Click();  // false where the note stays open
    void mnuKill_Click();

    bool NoteChanged = false;
    bool NoteErased = false;
    std::size_t TextLengthAtActivate = 0;
    DueRules::AlarmValues alarmValues;
    // The date and the time that they were computed from.
    std::optional<std::pair<forms::DateTime, forms::DateTime>> alarmValuesOf;

    bool holdsNote = false;
    bool saveFailed = false;  // the last saving
    bool isRecovered = false;
    bool keepsRecoveryCopy = false;  // beyond the end of this editor
    std::string savedText;
    RecoveryCopy recoveryCopy;
};

namespace StandardCode {

// The file of this title's note now holds this text, whoever wrote it; empty where it was erased.
// What open editors of that file show beyond it is unsaved from now on.
void NoteFileHolds(const std::string& title, const std::string& text);
// The open editor of the note with exactly this title, or null.
std::shared_ptr<frmNote> FindOpenNote(const std::string& title);
bool IsNoteOpen(const std::string& title);
// Whether an editor's alarm sounds and waits for its box.
bool IsNoteRinging();

}  // namespace StandardCode
