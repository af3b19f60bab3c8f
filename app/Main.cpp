#include "app/Main.h"

#include "alarms/SpecialAlarmsFile.h"
#include "app/Exit.h"
#include "app/ProductTexts.h"
#include "app/StandardCode.h"
#include "app/dlgMsgBox.h"
#include "app/frmMain.h"
#include "forms/Application.h"
#include "forms/Devices.h"
#include "forms/MsgBox.h"
#include "forms/Services.h"
#include "info/frmSplash.h"
#include "notes/NoteLeftovers.h"
#include "notes/NoteStore.h"
#include "notes/frmViewNotes.h"

namespace StandardCode {

namespace {

// Runs before an error that no handler trapped ends the program.
void SaveAndRemoveIcon() {
    SaveOpenNotes();
    if (auto* main = forms::LoadedDefault<frmMain>()) {
        forms::Machine().tray->Delete(main->TrayIconRecord);
    }
}

// Whether the program's files are missing. If a user starts the program inside a zip archive,
// Explorer extracts nothing but the program. Users also copy the program without its files.
bool IsAlone() {
    const auto missing = [](const char* name) {
        return !forms::Machine().files->FileExists(forms::ApplicationPath(name));
    };
    return missing("\\logo.ico") && missing("\\mascot.jpg");
}

}  // namespace

const forms::ApplicationInfo applicationInfo{
    .name = "Jotwright",
    .registryKey = registryKey,
    .mutexName = mutexName,
    .savingText = "The open notes are being saved.",
};

void Main() {
    Reset();
    if (IsAlone()) {
        forms::MsgBox(
            "The files that belong to Jotwright are not beside Jotwright.exe.\r\n\r\n"
            "If you started it inside a zip archive, extract the whole archive first: right click "
            "the archive and choose \"Extract All\". Then start Jotwright.exe in the new folder.",
            {.icon = forms::BoxIcon::Exclamation}, "Jotwright");
        return;
    }
    if (forms::Machine().system->PreviousInstance()) {
        PictureMessageBox(
            "     Jotwright is already running.\r\n"
            "Click the Blue 'N' in the system tray.",
            "  Jotwright Is Running", "logo.ico");
        return;
    }
    // If a file has the name of the notes folder, the program starts without the folder, and each
    // save reports the error.
    if (!forms::Machine().files->FileExists(NotesFolder())) {
        EnsureNotesFolder();
    }
    AdoptNoteLeftovers();
    SpecialAlarmsFile::AdoptLeftovers();
    ConnectControlPanel();
    forms::Application::Current().onFatalError = SaveAndRemoveIcon;
    forms::Application::Current().onHelp = [] { Signals().ShowHelp.Raise(); };

    auto& splash = forms::Default<frmSplash>();
    splash.Show();
    splash.tmrSplash.enabled = true;
}

}  // namespace StandardCode
