#pragma once

#include <optional>
#include <string>

#include "forms/Form.h"

// A message with one of the program's own pictures. StandardCode::PictureMessageBox fills it.
class dlgMsgBox : public forms::Form {
  public:
    dlgMsgBox() : Form("dlgMsgBox") {}

    forms::Image imgMsg{this, "imgMsg"};
    forms::Label lblMsg{this, "lblMsg"};
    forms::CommandButton cmdOk{this, "cmdOk"};

    void Design() override;
    // Sizes the dialog to its message and its picture, if it has one.
    void Arrange();

  private:
    void cmdOk_Click();
};

namespace StandardCode {

// Shows the dialog and returns when the user has closed it. picture is the name, without a path, of
// a file in the application folder. If picture is empty or has no value, only the message is shown.
// A message or picture without a value becomes an empty text in the caller's variable. RuntimeError
// 53, without a dialog, if the picture's file is missing.
void PictureMessageBox(std::optional<std::string>& message, const std::string& caption,
                       std::optional<std::string>& picture);
// For callers that have both texts.
void PictureMessageBox(const std::string& message, const std::string& caption,
                       const std::string& picture);

}  // namespace StandardCode
