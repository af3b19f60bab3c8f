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
    // Sizes the dialog to its message and its picture, where it has one.
    void Arrange();

  private:
    void cmdOk_Click();
};

namespace StandardCode {

// Shows the dialog and returns when the user has closed it. picture is the bare name of a file in
// the application folder; none or an empty one shows the message alone. A missing message or
// picture becomes an empty text in the caller's variable. RuntimeError 53 where the picture's file
// is missing: the dialog is then not shown.
void PictureMessageBox(std::optional<std::string>& message, const std::string& caption,
                       std::optional<std::string>& picture);
// The same for callers that have texts.
void PictureMessageBox(const std::string& message, const std::string& caption,
                       const std::string& picture);

}  // namespace StandardCode
