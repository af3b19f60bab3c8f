#include "info/frmAbout.h"

#include <string>

#include "app/Grid.h"
#include "app/ProductTexts.h"
#include "base/Text.h"
#include "forms/Services.h"

namespace {

std::string AboutText() {
    const std::string lines[] = {
        StandardCode::ownershipLine,
        "                             All Rights Reserved",
        std::string("Support: ") + StandardCode::supportContact,
        std::string("Web site: ") + StandardCode::webSite,
        "",
        "WARNING:",
    };
    std::string text;
    for (const std::string& line : lines) {
        text += line + base::lineBreak;
    }
    return text +
           "This computer program is protected by copyright laws. Unauthorized reproduction or "
           "distribution "
           "of this program, or any part of it, may result in severe civil and criminal penalties, "
           "and will "
           "will be prosecuted to the fullest extent under the law.";
}

}  // namespace

void frmAbout::Design() {
    caption = "About Jotwright";
    borderStyle = forms::BorderStyle::Dialog;
    showInTaskbar = false;
    centerOnScreen = true;
    innerWidth = 7260;
    innerHeight = 3675;

    lblAbout.Place(Grid::margin, Grid::margin, 6900, 300);
    lblVersion.caption = std::string("Version ") + StandardCode::version;
    lblVersion.Place(Grid::margin, 540, 6900, Grid::lineHeight);
    txtAbout.multiLine = true;
    txtAbout.readOnly = true;
    txtAbout.accessibleName = "About Jotwright";
    txtAbout.Place(Grid::margin, 900, 6900, 2100);
    cmdCancel.caption = "&Close";
    cmdCancel.isDefault = true;
    cmdCancel.isCancel = true;
    cmdCancel.tabIndex = 0;
    cmdCancel.Place(5820, 3120, Grid::buttonWidth, Grid::buttonHeight);
    cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frmAbout::Form_Load() {
    icon = forms::LoadPicture(forms::ApplicationPath("\\logo.ico"));
    lblAbout.fontSize = 10;
    lblAbout.foreColor = forms::Color{0, 0, 128};
    lblAbout.caption = "The Super Hero Of Note/Alarm Software.";
    txtAbout.height = 2100;
    txtAbout.text = AboutText();
}

void frmAbout::cmdCancel_Click() { Unload(); }
