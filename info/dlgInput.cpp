#include "info/dlgInput.h"

#include "app/StandardCode.h"

void dlgInput::Design() {
    caption = "Erase Message";
    borderStyle = forms::BorderStyle::Dialog;
    showInTaskbar = false;
    centerOnScreen = true;
    width = 4530;
    height = 1665;

    lblMsg.caption = "Would You Like To Erase This Message?";
    lblMsg.alignment = forms::Alignment::Center;
    lblMsg.Place(120, 180, 4200, 255);
    cmdYes.caption = "&Yes";
    cmdYes.Place(900, 630, 1260, 375);
    cmdYes.Click = [this] { cmdYes_Click(); };
    cmdNo.caption = "&No";
    cmdNo.Place(2280, 630, 1260, 375);
    cmdNo.Click = [this] { cmdNo_Click(); };
}

void dlgInput::cmdYes_Click() {
    StandardCode::Shared().Answer = 2;
    Unload();
}

void dlgInput::cmdNo_Click() {
    StandardCode::Shared().Answer = 1;
    Unload();
}
