#include "app/TrayMessages.h"
#include "app/frmMain.h"
#include "forms/Services.h"

// The main window and its icon in the notification area.

namespace {

constexpr std::uint32_t recordSize = 88;
constexpr std::uint32_t messageIconAndTip = 7;
// Makes the events of the icon arrive in the mouse-move handler.
constexpr std::uint32_t mouseMoveMessage = 512;

}  // namespace

void frmMain::AddTrayIcon() {
    TrayIconRecord.structureSize = recordSize;
    TrayIconRecord.owner = this;
    TrayIconRecord.iconId = 1;
    TrayIconRecord.flags = messageIconAndTip;
    TrayIconRecord.callbackMessage = mouseMoveMessage;
    TrayIconRecord.iconPath = icon().path;
    TrayIconRecord.tip = TrayMessages::FixedTip(caption);
    forms::Machine().tray->Add(TrayIconRecord);
}

void frmMain::Form_MouseMove(int /*button*/, int x, int /*y*/) {
    forms::SetMousePointer(forms::MousePointer::Default);
    // On a large scale the real pointer also crosses the columns whose numbers are messages.
    if (!IsTrayCallback()) {
        return;
    }
    switch (x / forms::TwipsPerPixelX()) {
        case TrayMessages::leftDoubleClick:
            txtNoteTitle.SetFocus();
            [[fallthrough]];
        case TrayMessages::leftButtonUp:
            windowState = forms::WindowState::Normal;
            BringToForeground();
            mnuHide.enabled = true;
            mnuShow.enabled = false;
            Show();
            break;
        case TrayMessages::rightButtonUp:
            // Without this, the menu would stay open if the user clicks elsewhere.
            BringToForeground();
            PopupMenu(mnuPop);
            break;
        default:
            break;
    }
}

void frmMain::Form_MouseUp(int button, int /*x*/, int /*y*/) { ShowPopupOn(button); }

void frmMain::ShowPopupOn(int button) {
    if (button == forms::rightButton) {
        PopupMenu(mnuPop);
    }
}

void frmMain::cmdHideMe_Click() { mnuHide_Click(); }

void frmMain::mnuHide_Click() {
    Hide();
    mnuHide.enabled = false;
    mnuShow.enabled = true;
}

void frmMain::mnuShow_Click() {
    // Otherwise a window that was minimised before it was hidden would come back minimised.
    if (windowState() == forms::WindowState::Minimized) {
        windowState = forms::WindowState::Normal;
    }
    Show();
    txtNoteTitle.SetFocus();
    mnuHide.enabled = true;
    mnuShow.enabled = false;
}
