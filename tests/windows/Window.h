#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace driver {

// A window of the program or a control in one. All text is UTF-8.
//
// What a user does is posted, not sent: its handler may open a box, and a sender would wait for
// the box to close.
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
    // The control, or the window itself, that has the focus of this window's program.
    Window Focus() const;
    LONG_PTR Style() const { return ::GetWindowLongPtrW(handle, GWL_STYLE); }
    RECT Place() const;          // on the screen
    POINT ClientOrigin() const;  // on the screen
    std::string Text() const;    // "(gone)" where there is no such window any more
    std::string ClassName() const;
    Window Parent() const { return Window(::GetParent(handle)); }
    // For reports of failures.
    std::string Description() const;

    std::vector<Window> Children() const;
    std::vector<Window> ChildrenOfClass(const std::string& className) const;
    // The visible child with this caption (of this class, unless it is empty); a null window where
    // there is none.
    Window FindChild(const std::string& className, const std::string& caption) const;
    // As above. Failure where there is none.
    Window Child(const std::string& className, const std::string& caption) const;
    Window Button(const std::string& caption) const { return Child("Button", caption); }
    // The only visible child of this class. Failure where there are none or several.
    Window Only(const std::string& className) const;

    // Presses a button, a check box or an option button. Failure unless a user could.
    void Click() const;
    bool IsChecked() const { return Send(BM_GETCHECK) == BST_CHECKED; }
    // Replaces the text as a user's typing would.
    void Type(const std::string& text) const;
    // Typed with the real keyboard, wherever the focus is. Letters, digits and blanks only.
    static void TypeKeys(const std::string& text);
    // Real keys, wherever the focus is: pressed one after the other, released in the opposite
    // order.
    static void PressKeys(const std::vector<WORD>& virtualKeys);
    void Key(WPARAM virtualKey) const;
    void Close() const { Post(WM_CLOSE); }

    // Whether the program answers messages before patience ends; true where the window has gone.
    bool Answers() const;
    // Failure where the program does not answer.
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
};

}  // namespace driver
