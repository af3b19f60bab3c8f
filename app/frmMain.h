#pragma once

#include <string>

#include "forms/CommonDialog.h"
#include "forms/Devices.h"
#include "forms/Form.h"

// The program's main window: the box for the title of a new note, the buttons that open the tools,
// the icon in the notification area, and the timers of the cuckoo clock, of the saved notes' alarms
// and of the weekly alarms. Closing the window ends the program.
class frmMain : public forms::Form {
  public:
    frmMain() : Form("frmMain") {}

    forms::Frame fraNotes{this, "fraNotes"};
    forms::Label Label1{this, "Label1"};
    forms::TextBox txtNoteTitle{this, "txtNoteTitle"};
    forms::CommandButton cmdMakeNote{this, "cmdMakeNote"};
    forms::Frame fraTools{this, "fraTools"};
    forms::CommandButton cmdSpecialAlarms{this, "cmdSpecialAlarms"};
    forms::CommandButton cmdViewNotes{this, "cmdViewNotes"};
    forms::CommandButton cmdTimer{this, "cmdTimer"};
    forms::CommandButton cmdStopWatch{this, "cmdStopWatch"};
    forms::CommandButton cmdCookoo{this, "cmdCookoo"};
    forms::CommandButton cmdHideMe{this, "cmdHideMe"};
    forms::CommandButton cmdExit{this, "cmdExit"};
    forms::Label lblCooKoo{this, "lblCooKoo"};
    forms::Label lblClick{this, "lblClick"};
    forms::Image imgLogo{this, "imgLogo"};
    forms::Label lblCopyright{this, "lblCopyright"};
    forms::CommonDialog cdgMain{this, "cdgMain"};

    forms::Timer tmrNow{this, "tmrNow", forms::TimerPhase::ClockSecond};
    forms::Timer tmrCooKoo{this, "tmrCooKoo", forms::TimerPhase::ClockSecond};
    // Unused, but kept on purpose: see docs/decisions/kept-unreachable.md.
    forms::Timer tmrSpecialNotes{this, "tmrSpecialNotes", forms::TimerPhase::ClockSecond};
    forms::Timer tmrCheckSoundFile{this, "tmrCheckSoundFile"};

    forms::Menu mnuFile{this, "mnuFile", "&File"};
    forms::Menu mnuFileSep{this, mnuFile, "mnuFileSep", "-"};
    forms::Menu mnuFileExit{this, mnuFile, "mnuFileExit", "&Exit"};
    forms::Menu mnuTools{this, "mnuTools", "&Tools"};
    forms::Menu mnuToolsSpecialAlarms{this, mnuTools, "mnuToolsSpecialAlarms", "Special A&larms"};
    forms::Menu mnuToolsControlPanel{this, mnuTools, "mnuToolsControlPanel",
                                     "Notes Co&ntrol Panel"};
    forms::Menu mnuToolsTimer{this, mnuTools, "mnuToolsTimer", "&Timer"};
    forms::Menu mnuToolsStopWatch{this, mnuTools, "mnuToolsStopWatch", "&Stop Watch"};
    forms::Menu mnuSepOpt{this, mnuTools, "mnuSepOpt", "O&ptions"};
    forms::Menu mnuToolsChangeAlarm{this, mnuSepOpt, "mnuToolsChangeAlarm", "&Choose Alarm Sound"};
    forms::Menu mnuToolsOptions{this, mnuSepOpt, "mnuToolsOptions", "Note Options"};
    forms::Menu mnuFileHelp{this, "mnuFileHelp", "&Help"};
    forms::Menu mnuHelpAbout{this, mnuFileHelp, "mnuHelpAbout", "&About"};
    forms::Menu mnuHelpHelp{this, mnuFileHelp, "mnuHelpHelp", "&Help Files"};
    forms::Menu mnuVisitWeb{this, mnuFileHelp, "mnuVisitWeb", "&Visit Jotwright Web Site"};
    forms::Menu mnuHelpShowTips{this, mnuFileHelp, "mnuHelpShowTips", "&Show Jotwright Tips"};

    forms::Menu mnuPop{this, "mnuPop", "Pop"};
    forms::Menu mnuAbout{this, mnuPop, "mnuAbout", "About Jotwright"};
    forms::Menu mnuHelp{this, mnuPop, "mnuHelp", "Help"};
    forms::Menu mnuWebSite{this, mnuPop, "mnuWebSite", "Visit Jotwright Web Site"};
    forms::Menu mnuTips{this, mnuPop, "mnuTips", "Show Jotwright Tips"};
    forms::Menu mnuSep2{this, mnuPop, "mnuSep2", "-"};
    forms::Menu mnuHide{this, mnuPop, "mnuHide", "Hide Jotwright"};
    forms::Menu mnuShow{this, mnuPop, "mnuShow", "Show Jotwright"};
    forms::Menu mnuTimer{this, mnuPop, "mnuTimer", "Timer"};
    forms::Menu mnuStopWatch{this, mnuPop, "mnuStopWatch", "Stop Watch"};
    forms::Menu mnuAlarm{this, mnuPop, "mnuAlarm", "Change Alarm Sound"};
    forms::Menu mnuSpecialAlarms{this, mnuPop, "mnuSpecialAlarms", "Special Alarms"};
    forms::Menu mnuControlPanel{this, mnuPop, "mnuControlPanel", "Notes Control Panel"};
    forms::Menu sep1{this, mnuPop, "sep1", "-"};
    forms::Menu mnuExit{this, mnuPop, "mnuExit", "Exit"};

    void Design() override;
    void Form_Initialize() override;
    void Form_Load() override;
    void Form_QueryUnload(bool& cancel, forms::UnloadMode mode) override;
    void Form_Unload(bool& cancel) override;
    void Form_MouseUp(int button, int x, int y) override;
    // Resets the shape of the mouse pointer. Also handles the callback of the icon in the
    // notification area: then x, in pixels, is the number of the message.
    void Form_MouseMove(int button, int x, int y) override;
    forms::ShortcutTarget TargetOf(forms::Shortcut key) override;

    // Opens an editor, minimised, for every saved note; see StandardCode::ReadNotes().
    void ReadNotes();
    // Plays the cuckoo count times in a row. No other handler runs meanwhile.
    void StrikeCuckoo(int count);
    // Opens a document or an address with the shell and returns the shell's result. A result above
    // 32 means success. Reports failures to the user.
    int OpenInBrowser(const std::string& document);

    // The icon is shown from Form_Load to Form_QueryUnload.
    forms::TrayRecord TrayIconRecord;

  private:
    void DesignControls();
    void ConnectCommands();
    void ConnectSignals();
    void EnableNoteCreation(bool enable);
    void ApplyNoteLimit();
    void RunCuckooClock(bool run);
    void AddTrayIcon();
    void ShowNormal();
    void ShowHelpFile(forms::HelpCommand command);

    void cmdMakeNote_Click();
    void cmdCookoo_Click();
    void tmrNow_Timer();
    void tmrCooKoo_Timer();
    void mnuHide_Click();
    void mnuShow_Click();

    // Whether the cuckoo has struck. Unused, but kept on purpose: see
    // docs/decisions/kept-unreachable.md.
    bool struck = false;
};
