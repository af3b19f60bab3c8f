#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace driver {

// Classes of top-level windows.
inline constexpr const char* formClass = "FormWindow";
inline constexpr const char* boxClass = "#32770";  // also of the system's dialogs
inline constexpr const char* menuClass = "#32768";

// A window of the program, or a control in a window. All text is UTF-8.
//
// The user's actions are posted, not sent: a handler may open a box, and SendMessage would not
// return until that box is closed.
class Window {
  public:
    Window() = default;
    explicit Window(HWND window) : handle(window) {}

    HWND handle = nullptr;

    explicit operator bool() const { return handle != nullptr; }
    bool operator==(const Window&) const = default;

    bool Exists() const { return ::IsWindow(handle) != 0; }
    bool IsVisible() const { return ::IsWindowVisible(handle) != 0; }
    bool IsEnabled() const { return ::IsWindowEnabled(handle) != 0; }
    bool IsMinimized() const { return ::IsIconic(handle) != 0; }
    bool IsTopMost() const {
        return (::GetWindowLongPtrW(handle, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    }
    bool HasTitleBar() const { return (Style() & WS_CAPTION) == WS_CAPTION; }
    bool HasFocus() const;
    // The window or control with the focus in the thread of this window. A null window if there is
    // none.
    Window Focus() const;
    LONG_PTR Style() const { return ::GetWindowLongPtrW(handle, GWL_STYLE); }
    RECT Place() const;          // on the screen
    POINT ClientOrigin() const;  // on the screen
    std::string Text() const;    // "(gone)" if the window no longer exists
    // The caption of a top-level window, at most 255 characters. Sends the program no message.
    std::string Caption() const;
    std::string ClassName() const;
    Window Parent() const { return Window(::GetParent(handle)); }
    // A description for reports of failures.
    std::string Description() const;

    std::vector<Window> Children() const;
    std::vector<Window> ChildrenOfClass(const std::string& className) const;
    // The visible child with this caption and this class. An empty class matches any class. A null
    // window if there is no such child.
    Window FindChild(const std::string& className, const std::string& caption) const;
    // Like FindChild, but raises Failure if there is no such child.
    Window Child(const std::string& className, const std::string& caption) const;
    Window Button(const std::string& caption) const { return Child("Button", caption); }
    // The only visible child of this class. Raises Failure if there are none or several.
    Window Only(const std::string& className) const;

    // Clicks a button, a check box or an option button. Raises Failure if a user could not click
    // it.
    void Click() const;
    bool IsChecked() const { return Send(BM_GETCHECK) == BST_CHECKED; }
    // Replaces the text. A single-line box then notifies its window of the change, and a multi-line
    // box does not. Raises Failure if a user could not type into the control.
    void Type(const std::string& text) const;
    void Press(WPARAM virtualKey) const;
    // Clicks the close box of the title bar.
    void CloseBox() const { Post(WM_CLOSE); }
    void Minimize() const { Post(WM_SYSCOMMAND, SC_MINIMIZE); }
    void Restore() const { Post(WM_SYSCOMMAND, SC_RESTORE); }

    // Whether the program answers a message before the patience ends. True if the window has
    // closed.
    bool Answers() const;
    // Raises Failure if the program does not answer.
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

  private:
    // Sends a message to a program that has just answered.
    LRESULT Deliver(UINT message, WPARAM wParam, LPARAM lParam) const;
};

}  // namespace driver
