#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "forms/Controls.h"

namespace forms::win32 {

class FormWindow;

// The native side of one control. It exists from the time when its form's window is filled until
// that window is destroyed. A control of the system has a handle. The form paints images, shapes
// and lines.
//
// Any gesture may unload the form. After a gesture, use the model only if window.IsLive().
class Peer {
  public:
    Peer(FormWindow& formWindow, Control& peerControl) : window(formWindow), control(peerControl) {}
    virtual ~Peer() = default;
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    FormWindow& window;
    Control& control;
    HWND handle = nullptr;
    bool startsGroup = true;  // starts a group for the arrow keys; set before Make

    // Creates the native control in the state of the model. Call the other functions only
    // afterwards.
    void Make() {
        isMade = true;
        Create();
    }
    bool IsMade() const { return isMade; }
    // Called when the model has changed.
    virtual void Apply(Aspect aspect);
    // Called when the control's place or the window's resolution has changed.
    virtual void Layout();
    // Called when the font or the pictures have changed with the resolution or the user's settings.
    virtual void Restyle();

    virtual void OnCommand(int /*code*/) {}  // WM_COMMAND
    // Presses the control's button with this command number. Returns false if it has no such
    // button.
    virtual bool PressButton(int /*id*/) { return false; }
    virtual std::optional<LRESULT> OnNotify(NMHDR& /*header*/) { return std::nullopt; }
    // Handles WM_CTLCOLOR messages. If it returns null, the form chooses the colours.
    virtual HBRUSH OnColor(HDC /*dc*/) { return nullptr; }
    // Paints the control on the form's surface, in client pixels of the form.
    virtual void Paint(HDC /*dc*/) {}
    // Whether mouse messages go to the form, which finds the control by its place.
    virtual bool IsTransparent() const { return handle == nullptr; }

    // The control's rectangle in client pixels of the form.
    RECT Area() const;

  protected:
    virtual void Create() {}
    void CreateNative(const wchar_t* className, const std::string& text, DWORD style,
                      DWORD extendedStyle = 0);
    virtual HFONT Font() const;
    // Called when a screen reader first examines the native control. Gives the system the names
    // that the control does not provide. The libraries for this are loaded only now. If it returns
    // false, it is called again at the next examination.
    virtual bool Describe();
    // Handles a message to the native control. If the result is empty, the control's own procedure
    // handles the message.
    virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);
    void SetCaption(const std::string& caption);
    void Redraw() const;

  private:
    static LRESULT CALLBACK Procedure(HWND child, UINT message, WPARAM wParam, LPARAM lParam);
    void ReportMouseUp(int button, LPARAM where);

    WNDPROC controlProcedure = nullptr;  // the native control's own
    bool isMade = false;
    bool isDescribed = false;
};

std::unique_ptr<Peer> MakePeer(FormWindow& window, Control& control);

}  // namespace forms::win32
