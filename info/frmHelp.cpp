#include "info/frmHelp.h"

#include "app/Grid.h"
#include "forms/Services.h"

void frmHelp::Design() {
    caption = "Jotwright Help";
    borderStyle = forms::BorderStyle::Dialog;
    showInTaskbar = false;
    centerOnScreen = true;
    innerWidth = 6360;
    innerHeight = 4695;

    lblHelp.useMnemonic = false;
    lblHelp.Place(Grid::margin, Grid::margin, 6000, 3840);
    cmdClose.caption = "&Close";
    cmdClose.isDefault = true;
    cmdClose.isCancel = true;
    cmdClose.Place(4920, 4140, Grid::buttonWidth, Grid::buttonHeight);
    cmdClose.Click = [this] { cmdClose_Click(); };
}

void frmHelp::Form_Load() {
    icon = forms::LoadPicture(forms::ApplicationPath("\\logo.ico"));
    lblHelp.caption =
        "Jotwright Help\r\n"
        "1) After Jotwright is started, create a new"
        " note. As soon as the new note is created, Jotwright"
        " is hidden in the system tray and your new note is shown"
        " on your desktop. Go ahead and write your note. Then to access"
        " the note menu, Double Click with the left mouse button.\r\n"
        "\r\n"
        "From the menu you can 1)Hide the note 2)View the note or "
        "3)Destroy the note.\r\n"
        "\r\n"
        "For every note you have written, an icon is shown in the system tray."
        "Place the cursor over an icon and a ToolTip will display with the name of "
        " the note the icon represents. Click on the icon to view the note. To create"
        " another note, simply click the Jotwright program icon (the blue N).";
}

void frmHelp::cmdClose_Click() { Unload(); }
