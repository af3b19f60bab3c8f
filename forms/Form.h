#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/Color.h"
#include "forms/Control.h"
#include "forms/Controls.h"
#include "forms/FormEvents.h"
#include "forms/FormFocus.h"
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

// A window of the program. The class of a window derives from Form, has its controls as members and
// overrides the event handlers that it needs.
//
//   created (Design, Form_Initialize) -> loaded (Form_Load) -> shown, hidden, shown ...
//   -> unloaded (Form_QueryUnload, Form_Unload) -> destroyed
//
// The runtime keeps a loaded form alive. A class has one default instance. Default<T>() creates it
// at the first call, and again at the first call after it was unloaded. New<T>() creates further
// instances. A gesture or a tick keeps its form alive until the handler returns, so a handler may
// unload its own window or any other.
class Form : public FormEvents, public Observed, public std::enable_shared_from_this<Form> {
  public:
    explicit Form(const char* className);
    virtual ~Form();

    const char* const name;  // the name of the class, for example "frmMain"

    Property<std::string, Aspect::Caption> caption{*this};
    // The place of the window in twips. If left and top are both 0, the stage chooses the place.
    Property<int, Aspect::Bounds> left{*this, 0};
    Property<int, Aspect::Bounds> top{*this, 0};
    Property<int, Aspect::Bounds> width{*this, 4800};   // twips, including title bar and border
    Property<int, Aspect::Bounds> height{*this, 3600};  // twips, including title bar and border
    Property<Picture, Aspect::Picture> icon{*this};
    Property<std::optional<Color>, Aspect::BackColor> backColor{*this};  // empty: system colour
    Property<WindowState, Aspect::WindowState> windowState{*this, WindowState::Normal};

    // Set in Design only.
    BorderStyle borderStyle = BorderStyle::Fixed;
    bool showInTaskbar = true;
    bool isPage = false;          // if backColor is empty, uses the colour of pages, not of dialogs
    bool centerOnScreen = false;  // false: placed in a cascade with the open windows
    // The size of the inside in twips. If both are above 0, loading the form sets width and height
    // to this size plus the system's title bar, menu bar and border.
    int innerWidth = 0;
    int innerHeight = 0;
    int minimumWidth = 0;  // twips; for a sizable window
    int minimumHeight = 0;

    // Loads the form, which runs Form_Load. Does nothing if the form is loaded or was unloaded. If
    // Form_Load throws a RuntimeError, the form is unloaded without events, and the error goes on
    // to the caller.
    void Load();
    // Loads the form and makes it visible and, unless a modal form disables it, active.
    // Form_Activate runs before Show returns. The native window appears when the outermost handler
    // returns or waits, and shows the form as it is then. If the handler shows many forms, most of
    // the windows appear a little later; see Runtime::Settle.
    void Show();
    // Like Show, but returns only when the form is hidden or unloaded. Until then, the user cannot
    // use the windows that were visible, but can use windows that are shown later. Other handlers
    // may run meanwhile. If the form is modal already, brings it to the foreground and returns at
    // once.
    void ShowModal();
    void Hide();
    // Calls Form_QueryUnload and then Form_Unload, and unloads the form unless one of them cancels.
    // Returns false if one of them cancels.
    //
    // If the form is not loaded, returns true without raising events. If another call of Unload is
    // running for the form (its handlers may be waiting for the user), returns false without
    // raising events: the other call decides.
    bool Unload(UnloadMode mode = UnloadMode::Code);
    // Brings the form to the foreground of the desktop.
    void BringToForeground();
    // Shows the form above all other windows, without moving, sizing or activating it.
    void MakeTopMost();
    // Opens a pop-up menu at the pointer. Returns when the handler of the chosen entry has run, or
    // when the user has closed the menu. Other handlers may run meanwhile.
    void PopupMenu(Menu& menu);

    // True from the start of Form_Load to the end of the unloading.
    bool IsLoaded() const;
    bool IsVisible() const { return visible; }
    bool IsTopMost() const { return topMost; }
    bool IsModal() const { return isModal; }
    // Whether the user can use the form: it is visible, and no modal form disables it.
    bool IsUsable() const { return visible && disableCount == 0; }
    bool IsShownOnStage() const { return shownOnStage; }

    const std::vector<Control*>& Controls() const { return controls; }
    const std::vector<Menu*>& Menus() const { return menus; }  // top-level menus, in order
    bool HasMenuBar() const;
    const std::vector<Timer*>& Timers() const { return timers; }
    FormFocus focus{*this};
    // The control at this point of the form's inside, in twips. Null if there is none.
    Control* ControlAt(int x, int y) const;

    // The inner size in twips, as the stage shows the form.
    int ScaleWidth() const;
    int ScaleHeight() const;

    void Changed(Aspect aspect) override;

    // Whether the running Form_MouseMove reports a message of the notification area instead of a
    // move of the pointer. Read it before the handler waits, because another Form_MouseMove may run
    // meanwhile.
    bool IsTrayCallback() const { return isTrayCallback; }
    // Called by Gestures only.
    void RaiseMouseMove(int button, int x, int y, bool fromTray);

    // Data of the stage for this form.
    struct StageData {
        virtual ~StageData() = default;
    };
    std::unique_ptr<StageData> stageData;

  private:
    friend class Control;
    friend class Menu;
    friend class Timer;
    friend class Application;
    friend class Runtime;

    enum class State { Created, Loading, Loaded, Asking, Unloading, Unloaded };

    void BecomeVisible();
    void EndModal();
    void Discard();

    State state = State::Created;
    bool visible = false;
    bool topMost = false;
    bool shownOnStage = false;   // visible when the stage last showed or hid the form
    bool isMarkedDirty = false;  // in Application::dirty
    bool isModal = false;
    int disableCount = 0;                      // number of modal forms that disable this form
    std::vector<std::weak_ptr<Form>> shutOff;  // the forms that this modal form disables
    std::vector<Control*> controls;
    std::vector<Menu*> menus;
    std::vector<Timer*> timers;
    bool isTrayCallback = false;
};

}  // namespace forms
