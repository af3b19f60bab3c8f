#include "app/dlgMsgBox.h"

#include "forms/Application.h"
#include "forms/Services.h"

void dlgMsgBox::Design() {
    caption = "Dialog Caption";
    borderStyle = forms::BorderStyle::Dialog;
    showInTaskbar = false;
    centerOnScreen = true;

    imgMsg.sizeToPicture = true;
    imgMsg.visible = false;

    lblMsg.autoSize = true;
    // Messages quote the user's texts, which may contain ampersands.
    lblMsg.useMnemonic = false;
    // The position beside a picture of the usual size, clear of the button. Arrange() leaves the
    // label here if the message is taller than its picture.
    lblMsg.left = 1405;
    lblMsg.top = 240;

    cmdOk.caption = "OK";
    cmdOk.width = 855;
    cmdOk.height = 315;
    cmdOk.isDefault = true;
    cmdOk.isCancel = true;
    cmdOk.Click = [this] { cmdOk_Click(); };
}

void dlgMsgBox::Arrange() {
    const int textWidth = lblMsg.width;
    const int textHeight = lblMsg.height;
    const int pictureWidth = imgMsg.width;
    const int pictureHeight = imgMsg.height;

    if (imgMsg.picture().path.empty()) {
        lblMsg.top = 350;
        lblMsg.left = 200;
        height = textHeight + 1300;
        width = textWidth + 600;
        cmdOk.top = height - 800;
        cmdOk.left = width - 1300;
        return;
    }
    if (textHeight <= pictureHeight) {
        lblMsg.top = pictureHeight / 2;
        lblMsg.left = pictureWidth + imgMsg.left + 200;
        height = pictureHeight + 1300;
        width = textWidth + pictureWidth + 600;
        cmdOk.top = pictureHeight + 400;
    } else {
        height = textHeight + 1200;
        width = pictureWidth + textWidth + 1200;
        cmdOk.top = textHeight + 400;
    }
    cmdOk.left = width - 1100;
}

void dlgMsgBox::cmdOk_Click() { Unload(); }

namespace StandardCode {

void PictureMessageBox(std::optional<std::string>& message, const std::string& caption,
                       std::optional<std::string>& picture) {
    if (!message) {
        message = "";
    }
    if (!picture) {
        picture = "";
    }

    auto& dialog = forms::Default<dlgMsgBox>();
    dialog.lblMsg.fontSize = 10;
    dialog.imgMsg.left = 125;
    dialog.imgMsg.top = 350;
    dialog.lblMsg.caption = *message;
    dialog.caption = caption;
    if (picture->empty()) {
        dialog.imgMsg.picture = forms::Picture{};
    } else {
        dialog.imgMsg.picture = forms::LoadPicture(forms::ApplicationPath("\\" + *picture));
        dialog.imgMsg.visible = true;
    }
    dialog.Arrange();
    dialog.ShowModal();
}

void PictureMessageBox(const std::string& message, const std::string& caption,
                       const std::string& picture) {
    std::optional<std::string> messageVariable = message;
    std::optional<std::string> pictureVariable = picture;
    PictureMessageBox(messageVariable, caption, pictureVariable);
}

}  // namespace StandardCode
