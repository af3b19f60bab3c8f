#include "info/dlgInput.h"

#include "app/Grid.h"
#include "app/StandardCode.h"

void dlgInput::Design() {
    caption = "Erase Message";
    borderStyle = forms::BorderStyle::Dialog;
    showInTaskbar = false;
    centerOnScreen = true;
    innerWidth = 4560;
    innerHeight = 1170;

    lblMsg.caption = "Would You Like To Erase This Message?";
    lblMsg.alignment = forms::Alignment::Center;
    lblMsg.Place(Grid::margin, Grid::margin, 4200, Grid::lineHeight);
    cmdYes.caption = "&Yes";
    cmdYes.Place(960, 615, Grid::buttonWidth, Grid::buttonHeight);
    cmdYes.Click = [this] { cmdYes_Click(); };
    cmdNo.caption = "&No";
    cmdNo.Place(2340, 615, Grid::buttonWidth, Grid::buttonHeight);
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
