#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "forms/Controls.h"

namespace forms::win32 {

class FormWindow;

// The native side of one control, from the time when its form's window is filled until that window
// goes. Controls of the system have a handle; images, shapes and lines are painted by their form.
//
// Any report to the model may unload the form: afterwards the model is to be touched only where
// window.IsLive().
class Peer {
  public:
    Peer(FormWindow& formWindow, Control& peerControl) : window(formWindow), control(peerControl) {}
    virtual ~Peer() = default;
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    FormWindow& window;
    Control& control;
    HWND handle = nullptr;

    // Makes the native control with everything that the model says.
    virtual void Create() {}
    // The model has changed.
    virtual void Apply(Aspect aspect);
    // The place of the control or the window's resolution has changed.
    virtual void Layout();
    // The font or the pictures have changed with the resolution or the user's settings.
    virtual void Restyle();

    virtual void OnCommand(int /*code*/) {}  // WM_COMMAND
    // Presses the button with this command number; false if it is none of the control's.
    virtual bool PressButton(int /*id*/) { return false; }
    virtual std::optional<LRESULT> OnNotify(NMHDR& /*header*/) { return std::nullopt; }
    // WM_CTLCOLOR messages; null leaves the colours to the form.
    virtual HBRUSH OnColor(HDC /*dc*/) { return nullptr; }
    // On the form's surface, in client pixels of the form.
    virtual void Paint(HDC /*dc*/) {}
    // Whether the pointer passes through to the form, which then finds the control itself.
    virtual bool IsTransparent() const { return handle == nullptr; }

    // In client pixels of the form.
    RECT Area() const;

  protected:
    void CreateNative(const wchar_t* className, const std::string& text, DWORD style,
                      DWORD extendedStyle = 0);
    virtual HFONT Font() const;
    // A screen reader asks for the native control for the first time: tells the system what the
    // control itself does not. What that needs is loaded only now.
    virtual void Describe();
    // A message to the native control. Empty: the control's own procedure goes on with it.
    virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);
    void SetCaption(const std::string& caption);
    void Redraw() const;

  private:
    static LRESULT CALLBACK Procedure(HWND child, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR data);
    void ReportMouseUp(int button, LPARAM where);

    bool isDescribed = false;
};

std::unique_ptr<Peer> MakePeer(FormWindow& window, Control& control);

}  // namespace forms::win32
