#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "forms/Controls.h"

namespace forms::win32 {

class FormWindow;

// The native side of one control, from the filling of its form's window to the end of that window.
// Controls of the system have a handle; images, shapes and lines are painted by their form.
//
// Any gesture may unload the form. After it, use the model only if window.IsLive().
class Peer {
  public:
    Peer(FormWindow& formWindow, Control& peerControl) : window(formWindow), control(peerControl) {}
    virtual ~Peer() = default;
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    FormWindow& window;
    Control& control;
    HWND handle = nullptr;

    // Makes the native control in the state of the model.
    virtual void Create() {}
    // The model has changed.
    virtual void Apply(Aspect aspect);
    // The place of the control or the window's resolution has changed.
    virtual void Layout();
    // The font or the pictures have changed with the resolution or the user's settings.
    virtual void Restyle();

    virtual void OnCommand(int /*code*/) {}  // WM_COMMAND
    // Presses the control's button with this command number; false if it has no such button.
    virtual bool PressButton(int /*id*/) { return false; }
    virtual std::optional<LRESULT> OnNotify(NMHDR& /*header*/) { return std::nullopt; }
    // WM_CTLCOLOR messages; null leaves the colours to the form.
    virtual HBRUSH OnColor(HDC /*dc*/) { return nullptr; }
    // On the form's surface, in client pixels of the form.
    virtual void Paint(HDC /*dc*/) {}
    // Whether the pointer passes through to the form, which then finds the control by its place.
    virtual bool IsTransparent() const { return handle == nullptr; }

    // In client pixels of the form.
    RECT Area() const;

  protected:
    void CreateNative(const wchar_t* className, const std::string& text, DWORD style,
                      DWORD extendedStyle = 0);
    virtual HFONT Font() const;
    // Called when a screen reader first looks at the native control: gives the system the names
    // that the control itself does not give. Loads the libraries for it only now.
    virtual void Describe();
    // A message to the native control. If empty, the control's own procedure handles it.
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
