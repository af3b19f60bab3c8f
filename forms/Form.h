#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/Color.h"
#include "forms/Control.h"
#include "forms/Controls.h"
#include "forms/Menu.h"
#include "forms/Property.h"
#include "forms/Timer.h"

namespace forms {

enum class WindowState { Normal, Minimized, Maximized };
enum class BorderStyle {
    Fixed,    // title bar, can be minimised, cannot be sized
    Sizable,  // can be minimised, maximised and sized
    Dialog,   // title bar with a close box only
    None,     // no title bar, a thin border
};
// The reason for which a form is unloaded.
enum class UnloadMode { Code, CloseBox, SessionEnd };

// A window of the program. A class derives from it, holds its controls as members and overrides
// the event handlers that it needs.
//
//   created (Design, Form_Initialize) -> loaded (Form_Load) -> shown, hidden, shown ...
//   -> unloaded (Form_QueryUnload, Form_Unload) -> destroyed
//
// The runtime keeps a loaded form alive. A class has one default instance. Default<T>() makes it
// when it is first mentioned, and again when it is mentioned after it was unloaded. New<T>() makes
// further instances. A gesture or a tick keeps its form alive until the handler returns, so a
// handler may unload its own window or any other.
class Form : public Observed, public std::enable_shared_from_this<Form> {
  public:
    explicit Form(const char* className);
    virtual ~Form();

    const char* const name;  // of the class: "frmMain"

    Property<std::string> caption{*this, Aspect::Caption};
    Property<int> left{*this, Aspect::Bounds, 0};  // twips; meaningful once moved or centred
    Property<int> top{*this, Aspect::Bounds, 0};
    Property<int> width{*this, Aspect::Bounds, 4800};   // twips, with title bar and border
    Property<int> height{*this, Aspect::Bounds, 3600};  // twips, with title bar and border
    Property<Picture> icon{*this, Aspect::Picture};
    Property<std::optional<Color>> backColor{*this, Aspect::BackColor};  // none: the system's
    Property<WindowState> windowState{*this, Aspect::WindowState, WindowState::Normal};

    // Set in Design only.
    BorderStyle borderStyle = BorderStyle::Fixed;
    bool showInTaskbar = true;
    bool centerOnScreen = false;  // else in a cascade with the windows that are open
    // The size of the inside in twips. When the form is loaded, width and height are set to it plus
    // the title bar and the border of the system. 0: width and height stay as they are.
    int innerWidth = 0;
    int innerHeight = 0;
    int minimumWidth = 0;  // twips, of a sizable window
    int minimumHeight = 0;

    // Makes the form loaded: Form_Load runs. Does nothing if the form is loaded.
    void Load();
    // Loads the form and makes it visible and active; Form_Activate runs before this returns. The
    // native window appears when the outermost handler returns or shows a box, in the state that
    // the form has then.
    void Show();
    // Like Show, but returns when the form is hidden or unloaded. Until then, the windows that were
    // visible cannot be used; those that are shown later can. Timers and other events go on.
    void ShowModal();
    void Hide();
    // Calls Form_QueryUnload, then Form_Unload, and unloads the form unless one of them cancels.
    // False if cancelled. True, without events, if the form is not loaded. False, without events,
    // if another call of Unload is running for the form (its handlers may wait for the user): that
    // one decides.
    bool Unload(UnloadMode mode = UnloadMode::Code);
    // Brings the form to the foreground of the desktop.
    void BringToForeground();
    // Places the form above all windows, without moving, sizing or activating it, and shows it.
    void MakeTopMost();
    // Opens a pop-up menu at the pointer. Returns when the handler of the chosen entry has run, or
    // when the user has closed the menu. Timers go on.
    void PopupMenu(Menu& menu);

    // From the start of Form_Load to the end of the unloading.
    bool IsLoaded() const;
    bool IsVisible() const { return visible; }
    bool IsTopMost() const { return topMost; }
    bool IsModal() const { return isModal; }
    // Whether the user can act on it: visible and not shut off by a modal form.
    bool IsUsable() const { return visible && disableCount == 0; }
    bool IsShownOnStage() const { return shownOnStage; }

    const std::vector<Control*>& Controls() const { return controls; }
    const std::vector<Menu*>& Menus() const { return menus; }  // top-level, in order
    bool HasMenuBar() const;
    const std::vector<Timer*>& Timers() const { return timers; }
    // The control that has the focus while the form is active: the last one that was given it. If
    // that one cannot be used, the next Tab stop behind it; if there is none, the first Tab stop.
    Control* ActiveControl() const;
    // The controls in the order of the Tab key, frames and labels included.
    std::vector<Control*> TabOrder() const;
    // The control under the pointer, x and y in twips; null if that is the form itself.
    Control* ControlAt(int x, int y) const;
    // The buttons that Enter (unless a button has the focus) and Escape press. Null if there is
    // none that can be used.
    CommandButton* DefaultButton() const;
    CommandButton* CancelButton() const;

    // Inner size in twips, as the stage shows the form.
    int ScaleWidth() const;
    int ScaleHeight() const;

    void Changed(Aspect aspect) override;

    // The user moved the focus on the stage.
    void AdoptFocus(Control& control) { activeControl = &control; }

    // Whether the Form_MouseMove that is running brings a message of the notification area, not a
    // move of the pointer. Read it before the handler waits for anything.
    bool IsTrayCallback() const { return isTrayCallback; }
    // Called by Gestures only.
    void RaiseMouseMove(int button, int x, int y, bool fromTray);

    // The stage's own data of this form.
    struct StageData {
        virtual ~StageData() = default;
    };
    std::unique_ptr<StageData> stageData;

    // Event handlers that the class of a form may override.
    virtual void Design() {}           // captions, places, handlers of the controls
    virtual void Form_Initialize() {}  // once an instance, before its first load
    virtual void Form_Load() {}
    virtual void Form_Activate() {}  // the form has become the program's active one
    virtual void Form_Resize() {}    // inner size changed; also before the first showing
    virtual void Form_QueryUnload(bool& /*cancel*/, UnloadMode /*mode*/) {}
    virtual void Form_Unload(bool& /*cancel*/) {}
    virtual void Form_MouseUp(int /*button*/, int /*x*/, int /*y*/) {}  // twips
    // x and y in twips. For the callback of an icon in the notification area (see IsTrayCallback) x
    // is the message number times TwipsPerPixelX().
    virtual void Form_MouseMove(int /*button*/, int /*x*/, int /*y*/) {}

  private:
    friend class Control;
    friend class Menu;
    friend class Timer;
    friend class Runtime;

    enum class State { Created, Loading, Loaded, Asking, Unloading, Unloaded };

    void BecomeVisible();
    // Moves the focus on if its control was hidden or disabled.
    void MoveFocusOn();
    void EndModal();
    void Discard();

    State state = State::Created;
    bool visible = false;
    bool topMost = false;
    bool shownOnStage = false;  // visible as of the last Runtime::Settle
    bool isModal = false;
    int disableCount = 0;                      // modal forms that shut this one off
    std::vector<std::weak_ptr<Form>> shutOff;  // by this modal form
    std::vector<Control*> controls;
    std::vector<Menu*> menus;
    std::vector<Timer*> timers;
    Control* activeControl = nullptr;
    bool isTrayCallback = false;
};

}  // namespace forms
