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
// Why a form is asked to unload.
enum class UnloadMode { Code, CloseBox, SessionEnd };

// A window of the program. A class derives from it, holds its controls as members and overrides
// what it wants to know.
//
//   created (Design, Form_Initialize) -> loaded (Form_Load) -> shown, hidden, shown ...
//   -> unloaded (Form_QueryUnload, Form_Unload) -> destroyed
//
// A loaded form is kept alive by the runtime. A class has one default instance, made when first
// mentioned by Default<T>() and made anew when it is mentioned after it was unloaded; New<T>()
// makes further instances. Each entry from outside (a gesture, a tick) keeps its form alive until
// it returns, so a handler may unload its own window or any other.
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
    // The size of the inside in twips, from which width and height follow when the form is loaded,
    // whatever title bar and border the system draws. 0: width and height are given themselves.
    int innerWidth = 0;
    int innerHeight = 0;
    int minimumWidth = 0;  // twips, of a sizable window
    int minimumHeight = 0;

    // Makes the form loaded: Form_Load runs. Does nothing where it is loaded.
    void Load();
    // Loads, makes visible and active; Form_Activate runs before this returns. The native window
    // appears when the handler that asked returns (or shows a box), once, in the state that the
    // form has then.
    void Show();
    // Like Show, and returns when the form is hidden or unloaded. The windows that are visible
    // cannot be used meanwhile; those that are shown later can. Timers and other events go on.
    void ShowModal();
    void Hide();
    // Asks Form_QueryUnload, then Form_Unload; unloads unless one cancels. False when cancelled.
    // True, without events, where the form is not loaded. False, without events, while the form is
    // being asked already: it may be waiting for its user, and the first call decides.
    bool Unload(UnloadMode mode = UnloadMode::Code);
    // Brings the form to the foreground of the desktop.
    void BringToForeground();
    // Places the form above all windows, without moving, sizing or activating it, and shows it.
    void MakeTopMost();
    // Opens a pop-up menu at the pointer and runs the handler of the entry that the user chooses
    // before it returns. Timers go on.
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
    // What has the focus while the form is active: what was given it; where that cannot be used,
    // the next that the Tab key stops at; the first of these where nothing was given it.
    Control* ActiveControl() const;
    // The controls in the order of the Tab key, frames and labels included.
    std::vector<Control*> TabOrder() const;
    // The control under the pointer, x and y in twips; null where it is over the form itself.
    Control* ControlAt(int x, int y) const;
    // The button that Enter (from what is no button) and Escape press; null where none can be used.
    CommandButton* DefaultButton() const;
    CommandButton* CancelButton() const;

    // Inner size in twips, as the stage shows the form.
    int ScaleWidth() const;
    int ScaleHeight() const;

    void Changed(Aspect aspect) override;

    // The user moved the focus on the stage.
    void AdoptFocus(Control& control) { activeControl = &control; }

    // Whether the Form_MouseMove that is running brings a message of the notification area, not a
    // move of the pointer. To be read before the handler lets events in.
    bool IsTrayCallback() const { return isTrayCallback; }
    // For Gestures only.
    void RaiseMouseMove(int button, int x, int y, bool fromTray);

    // Left to the stage: its own data of this form.
    struct StageData {
        virtual ~StageData() = default;
    };
    std::unique_ptr<StageData> stageData;

    // What a form's class answers.
    virtual void Design() {}           // captions, places, handlers of the controls
    virtual void Form_Initialize() {}  // once an instance, before its first load
    virtual void Form_Load() {}
    virtual void Form_Activate() {}  // became the active one of the program's forms
    virtual void Form_Resize() {}    // inner size changed; also before the first showing
    virtual void Form_QueryUnload(bool& /*cancel*/, UnloadMode /*mode*/) {}
    virtual void Form_Unload(bool& /*cancel*/) {}
    virtual void Form_MouseUp(int /*button*/, int /*x*/, int /*y*/) {}  // twips
    // x and y in twips, from the pointer. As the callback of an icon in the notification area (see
    // IsTrayCallback) x is the message number times TwipsPerPixelX().
    virtual void Form_MouseMove(int /*button*/, int /*x*/, int /*y*/) {}

  private:
    friend class Control;
    friend class Menu;
    friend class Timer;
    friend class Runtime;

    enum class State { Created, Loading, Loaded, Asking, Unloading, Unloaded };

    void BecomeVisible();
    // The focus goes on from what was hidden or disabled.
    void MoveFocusOn();
    void EndModal();
    void Discard();

    State state = State::Created;
    bool visible = false;
    bool topMost = false;
    bool shownOnStage = false;  // the stage shows what visible says
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
