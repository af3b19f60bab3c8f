#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace driver {

// A window of the program, or a control in a window. All text is UTF-8.
//
// Actions of the user are posted, not sent: a handler may open a box, and a sender would wait until
// that box is closed.
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
    // The control that has the focus in this window's program, or the window itself.
    Window Focus() const;
    LONG_PTR Style() const { return ::GetWindowLongPtrW(handle, GWL_STYLE); }
    RECT Place() const;          // on the screen
    POINT ClientOrigin() const;  // on the screen
    std::string Text() const;    // "(gone)" if the window no longer exists
    std::string ClassName() const;
    Window Parent() const { return Window(::GetParent(handle)); }
    // A description for reports of failures.
    std::string Description() const;

    std::vector<Window> Children() const;
    std::vector<Window> ChildrenOfClass(const std::string& className) const;
    // The visible child with this caption and this class (an empty class matches any); a null
    // window if there is none.
    Window FindChild(const std::string& className, const std::string& caption) const;
    // The same, but raises Failure if there is none.
    Window Child(const std::string& className, const std::string& caption) const;
    Window Button(const std::string& caption) const { return Child("Button", caption); }
    // The only visible child of this class. Raises Failure if there are none or several.
    Window Only(const std::string& className) const;

    // Clicks a button, a check box or an option button. Raises Failure if a user could not.
    void Click() const;
    bool IsChecked() const { return Send(BM_GETCHECK) == BST_CHECKED; }
    // Replaces the text, with the notifications of typing.
    void Type(const std::string& text) const;
    // Types on the real keyboard, into whichever window has the focus. Letters, digits and blanks
    // only.
    static void TypeKeys(const std::string& text);
    // Presses real keys one after the other and releases them in reverse order. They go to the
    // window that has the focus.
    static void PressKeys(const std::vector<WORD>& virtualKeys);
    void Press(WPARAM virtualKey) const;
    // Clicks the close box of the title bar.
    void CloseBox() const { Post(WM_CLOSE); }
    void Minimize() const { Post(WM_SYSCOMMAND, SC_MINIMIZE); }
    void Restore() const { Post(WM_SYSCOMMAND, SC_RESTORE); }

    // Whether the program answers a message before patience ends; true if the window has gone.
    bool Answers() const;
    // Raises Failure if the program does not answer.
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
};

}  // namespace driver
