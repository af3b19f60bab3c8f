#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <vector>

#include "forms/Form.h"
#include "forms/Stage.h"
#include "forms/win32/NativeMenus.h"
#include "forms/win32/Peer.h"
#include "forms/win32/StageState.h"
#include "forms/win32/ToolTips.h"

namespace forms::win32 {

// The native window of a form. It is made bare, and filled with its menu bar and its controls when
// it is first shown un-minimised. When its form is unloaded it is hidden at once, and destroyed as
// soon as none of its procedures is on the stack: a handler may unload the form whose button it
// serves.
class FormWindow {
  public:
    // Numbers of the native controls: this and the control's place in the form.
    static constexpr int firstControlId = 100;

    static FormWindow* Existing(const Form& form);
    // Null where the form is not loaded or the system has no more windows.
    static FormWindow* Of(Form& form, StageState& state);
    // Null where the window is none of ours.
    static FormWindow* From(HWND window);

    ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    // While one of the window's procedures runs.
    class Entry {
      public:
        explicit Entry(FormWindow& formWindow) : window(formWindow) { ++window.entered; }
        ~Entry();
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;

      private:
        FormWindow& window;
    };

    StageState& state;
    HWND handle = nullptr;
    int dpi = 0;
    // Message boxes and dialogs that shut the window off.
    int boxes = 0;
    // Of the icon in the notification area that it owns, see TrayWindowOf; 0: none.
    UINT trayIconId = 0;
    // To be brought to the foreground when it appears.
    bool wantsForeground = false;

    bool IsLive() const { return form != nullptr; }
    Form& Model() const { return *form; }
    bool IsFilled() const { return filled; }
    bool IsShown() const { return ::IsWindowVisible(handle) != 0; }

    void ShowOrHide();
    void Apply(Aspect aspect);
    void UpdateEnabled();
    void ApplyToControl(Control& control, Aspect aspect);
    void ApplyToMenu(Menu& menu, Aspect aspect);
    void BringToForeground();
    // Gives the focus to the form's active control.
    void RestoreFocus();
    // The form is gone; destroys the window now or as soon as possible.
    void ScheduleDestroy();
    void DestroyIfScheduled();
    void UserSettingsChanged();
    // The monitors have changed: a window out of the user's reach comes back onto one.
    void ComeIntoReach();

    Peer* PeerOf(const Control& control) const;
    Peer* PeerOf(HWND child) const;
    const std::vector<std::unique_ptr<Peer>>& Peers() const { return peers; }
    NativeMenus& Menus() { return menus; }

    int Pixels(int twips) const;
    int Twips(int pixels) const;
    // Of lines and of the outlines of shapes, in pixels.
    int LineThickness() const;
    RECT AreaOf(const Control& control) const;
    HFONT FormFont() const;

    // Paints what lies below the native controls: background, frames, images, shapes, lines.
    void PaintSurface(HDC dc);
    COLORREF BackColor() const;
    // The colour of the surface below a control: of the shape that it lies on, else the form's.
    COLORREF ColorBehind(const Control& control) const;
    // Something on the surface has changed; whatever shows it is painted again.
    void InvalidateSurface(const RECT& area);
    // The default button is drawn as one, or the push button that has the focus.
    void MarkDefaultButton(const Peer* focused);
    // The menu key was pressed. False if the control that has the focus opens its own menu.
    bool OpenMenuByKeyboard();

    static DWORD Style(const Form& form);
    static DWORD ExtendedStyle(const Form& form);
    static bool HasMenuBar(const Form& form);
    // What title bar, menu bar and border add to the client area, in pixels.
    static SIZE FrameSize(const Form& form, int dpi);

  private:
    FormWindow(Form& windowForm, StageState& stageState);
    bool CreateBare();
    void Fill();
    void CreateControls();
    SIZE OuterSize() const;
    RECT WantedPlace() const;
    std::vector<POINT> TakenPlaces() const;
    // A window is made at the resolution of the system; what shows it may have another one.
    void AdaptToMonitor();
    void ApplyBounds();
    RECT RestoredPlace() const;
    POINT PlacementOrigin() const;
    void ApplyIcon();
    void Show();
    void Hide();
    void Activate();
    bool CanBeActive() const;
    FormWindow* Successor() const;
    void MarkUsed();
    void ReleaseOwned();
    void GoBackToBaseOwner();
    void DetachFromForm();
    HWND BaseOwner() const;
    void LayoutControls();
    void Rescale(int newDpi, const RECT& suggested);
    void RestoreInnerSize();

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnLiveMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(WPARAM wParam, LPARAM lParam);
    void OnNextControl(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnNotify(NMHDR& header);
    HBRUSH OnColor(UINT message, HDC dc, HWND child);
    void OnPaint();
    void OnActivate(WPARAM wParam);
    void OnSize(WPARAM kind);
    void OnMinMaxInfo(MINMAXINFO& info) const;
    // suggestion: address of the RECT that the window is to take; it may be wrong.
    void OnScaleChanged(int newDpi, LPARAM suggestion);
    void ReportPlace();

    bool IsTrayMessage(WPARAM wParam, LPARAM lParam) const;
    void OnMouseMove(WPARAM wParam, LPARAM lParam);
    void OnMouseUp(int button, LPARAM lParam);
    // The control under a point of the form, in pixels; null for the form itself.
    Control* ControlAt(POINT point) const;

    // While CreateWindow runs for it. The message that tells of the making may be forged, and its
    // parameters with it.
    inline static FormWindow* beingMade = nullptr;

    Form* form;
    bool filled = false;
    HWND modalOwner = nullptr;  // the form's window before which this one stays while it is modal
    bool destroyScheduled = false;
    bool sizing = false;  // the user drags the window or its border
    int entered = 0;
    LPARAM lastPointer = -1;
    std::vector<std::unique_ptr<Peer>> peers;  // in the order of the form's controls
    NativeMenus menus;
    ToolTips tips;
};

}  // namespace forms::win32
