#pragma once

#include <memory>

#include "forms/Stage.h"
#include "forms/win32/MakeStage.h"

namespace forms::win32 {

struct StageState;
class MessageFilter;
class UtilityWindow;

// The stage for a real user: windows and standard controls of the system. Only one may exist at a
// time. Use it only on the thread that created it. It must outlive the runtime.
class Win32Stage : public Stage {
  public:
    explicit Win32Stage(const ApplicationInfo& application);
    ~Win32Stage() override;
    Win32Stage(const Win32Stage&) = delete;
    Win32Stage& operator=(const Win32Stage&) = delete;

    void FormLoaded(Form& form) override;
    void FormUnloaded(Form& form) override;
    void ShowOrHide(Form& form) override;
    void FormChanged(Form& form, Aspect aspect) override;
    void ControlChanged(Control& control, Aspect aspect) override;
    void MenuChanged(Menu& menu, Aspect aspect) override;
    void UsableChanged(Form& form) override;
    void FocusMoved(Control& control) override;
    void BringToForeground(Form& form) override;
    std::string FetchText(TextBox& textBox) override;

    BoxResult ShowMessageBox(const BoxRequest& request) override;
    void RunModal(Form& form) override;
    Menu* ShowPopupMenu(Form& form, Menu& menu) override;
    std::optional<std::string> ShowOpenDialog(Form& form,
                                              const FileDialogRequest& request) override;
    void RunMainLoop() override;
    void RunFor(int milliseconds) override;

    void Quit() override;
    void ArmTimer(std::optional<std::int64_t> due) override;

    Size MeasureText(const Form& form, const std::string& text, int fontSize) override;
    Size InnerSize(const Form& form) override;
    Size FrameSize(const Form& form) override;
    void SetMousePointer(MousePointer pointer) override;

  private:
    std::unique_ptr<StageState> state;
    std::unique_ptr<UtilityWindow> utility;
    std::unique_ptr<MessageFilter> filter;
};

}  // namespace forms::win32
