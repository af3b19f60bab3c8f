#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "alarms/DueRules.h"
#include "app/StandardCode.h"
#include "forms/Form.h"
#include "notes/EditedNote.h"
#include "notes/NoteEditor.h"

// The editor of one note: its text, colour, font size and alarm. The caption is the note's title. A
// restored or new note saves silently when its window closes; a note that was opened while the
// control panel is the way into the editors asks. OpenEditor.h opens editors.
//
// An editor that was given no title holds no note: it saves, asks and deletes nothing. The default
// instance, which is never shown, is one.
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
    // Written as the callback of an icon in the notification area, whose messages arrive as x.
    void Form_MouseMove(int button, int x, int y) override;

    // Makes this the editor of a new note with this title, or of a saved note; once, after loading.
    void BeginNote(const std::string& title);
    void BeginNote(const StoredNote& stored);
    bool HoldsNote() const { return edited.IsOpen(); }
    const EditedNote& Edited() const { return edited; }

    // Saves the note and rebuilds the notes array. An error is shown; false then.
    bool WriteNote();
    forms::Form& Window() override { return *this; }
    void SaveBeforeTheEnd() override;
    bool KeepForNextStart() override;

    // Paints the text box and checks the entry of the colour menu with this number, 1 to 6.
    void ApplyColor(StandardCode::NoteColor color, std::size_t colorIndex);
    // 10, 12, 14 or 16 points; any other size changes nothing.
    void ApplyFontSize(int points);
    // Presents the pickers' date and time as an alarm that is set.
    void PresentAlarm(const forms::Picture& alarmIcon);
    // RuntimeError 53 if it is missing.
    static forms::Picture AlarmIcon();

    // There is nothing to save in the editor as it stands.
    void MarkSaved();
    // Shows the unsaved note of a program that was killed, and brings the editor up. The icon is
    // needed if the note's alarm is set, see AlarmIcon().
    void TakeRecovered(const RecoveredNote& recovered, const forms::Picture& alarmIcon);

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

    // The note as the editor shows it.
    StandardCode::NoteRecord Record();
    std::int16_t ColorIndex();
    std::int16_t FontSize();
    std::int16_t AudioAlarm() { return chkAudioAlarm.value() == 1 ? 1 : 0; }
    // Whether the editor shows what it showed when there was last nothing to save.
    bool ShowsSavedRecord();
    // Whether nothing that the editor shows would be lost with it.
    bool IsSaved();
    // Whether the file stays as it is if the window goes: the user has changed nothing here, and
    // either another program has changed the file, which is newer then, or the program exits and
    // no alarm has to be switched off in the file.
    bool LeavesFileAlone(bool isExit);
    void SaveFile();
    void CloseThroughPanel(bool& cancel);
    void CloseSilently(bool& cancel);
    void KeepOpen(bool& cancel);
    void RecycleUnsaved();
    void KeepRecoveryCopy(RecoveryCopy::When when);

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
    // An alarm that has rung is no change that the user has to save.
    void AcceptFiring();
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
    bool isErasingConfirmed = false;
    bool hasRung = false;  // and the file still has the alarm
    std::size_t TextLengthAtActivate = 0;
    DueRules::AlarmValues alarmValues;
    // The date and the time that they were computed from.
    std::optional<std::pair<base::DateTime, base::DateTime>> alarmValuesOf;

    EditedNote edited{*this};
};
