#include "tests/windows/Window.h"

#include <windows.h>
#include <commctrl.h>

#include "forms/win32/Utf.h"
#include "tests/windows/Wait.h"

namespace driver {

using forms::win32::Narrow;
using forms::win32::Wide;

namespace {

// In milliseconds. This limit is for a program that hangs while it handles the message. If a
// program answers no messages at all, Send fails sooner.
constexpr UINT answerTimeout = 3'600'000;
constexpr UINT probeTimeout = 500;  // milliseconds

}  // namespace

RECT Window::Place() const {
    RECT place{};
    ::GetWindowRect(handle, &place);
    return place;
}

POINT Window::ClientOrigin() const {
    POINT origin{};
    ::ClientToScreen(handle, &origin);
    return origin;
}

bool Window::HasFocus() const { return Focus() == *this; }

Window Window::Focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    ::GetGUIThreadInfo(::GetWindowThreadProcessId(handle, nullptr), &info);
    return Window(info.hwndFocus);
}

// The window may be destroyed during this call.
std::string Window::Text() const {
    try {
        const LRESULT length = Send(WM_GETTEXTLENGTH);
        std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
        const LRESULT copied =
            Deliver(WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
        text.resize(static_cast<std::size_t>(copied));
        return Narrow(text);
    } catch (const Failure&) {
        if (Exists()) {
            throw;
        }
        return "(gone)";
    }
}

std::string Window::Caption() const {
    wchar_t text[256]{};
    ::GetWindowTextW(handle, text, 256);
    return Narrow(text);
}

std::string Window::ClassName() const {
    wchar_t name[64]{};
    ::GetClassNameW(handle, name, 64);
    return Narrow(name);
}

std::string Window::Description() const {
    if (handle == nullptr) {
        return "no window";
    }
    if (!Exists()) {
        return "a window that has gone";
    }
    return ClassName() + " \"" + Text() + '"' + (IsVisible() ? "" : " hidden") +
           (IsEnabled() ? "" : " disabled") + (IsMinimized() ? " minimized" : "");
}

std::vector<Window> Window::Children() const {
    std::vector<Window> children;
    for (HWND child = ::GetWindow(handle, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        children.emplace_back(child);
    }
    return children;
}

std::vector<Window> Window::ChildrenOfClass(const std::string& className) const {
    std::vector<Window> found;
    for (const Window& child : Children()) {
        if (child.IsVisible() && child.ClassName() == className) {
            found.push_back(child);
        }
    }
    return found;
}

Window Window::FindChild(const std::string& className, const std::string& caption) const {
    for (const Window& child : Children()) {
        if (child.IsVisible() && (className.empty() || child.ClassName() == className) &&
            child.Text() == caption) {
            return child;
        }
    }
    return {};
}

Window Window::Child(const std::string& className, const std::string& caption) const {
    const Window found = FindChild(className, caption);
    if (!found) {
        std::string report = "no " + className + " \"" + caption + "\" in " + Description() + ':';
        for (const Window& child : Children()) {
            report += "\n  " + child.Description();
        }
        throw Failure(report);
    }
    return found;
}

Window Window::Only(const std::string& className) const {
    const auto found = ChildrenOfClass(className);
    if (found.size() != 1) {
        throw Failure(std::to_string(found.size()) + " windows of class " + className + " in " +
                      Description());
    }
    return found.front();
}

void Window::Click() const {
    if (!IsVisible() || !IsEnabled() || !Parent().IsEnabled()) {
        throw Failure("a user cannot click " + Description() + " in " + Parent().Description());
    }
    Post(BM_CLICK);
}

void Window::Type(const std::string& text) const {
    if (!IsVisible() || !IsEnabled() || !Parent().IsEnabled()) {
        throw Failure("a user cannot type into " + Description());
    }
    // Single-line boxes notify their window of the change. Multi-line boxes do not.
    Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(text).c_str()));
}

void Window::Press(WPARAM virtualKey) const {
    const UINT scan = ::MapVirtualKeyW(static_cast<UINT>(virtualKey), MAPVK_VK_TO_VSC);
    const LPARAM down = static_cast<LPARAM>((scan << 16) | 1U);
    Post(WM_KEYDOWN, virtualKey, down);
    // The press may have closed the window, so the release may find no window.
    ::PostMessageW(handle, WM_KEYUP, virtualKey, down | static_cast<LPARAM>(0xC0000000U));
}

bool Window::Answers() const {
    return ComesTrue([this] {
        DWORD_PTR result = 0;
        return ::SendMessageTimeoutW(handle, WM_NULL, 0, 0, SMTO_NORMAL, probeTimeout, &result) !=
                   0 ||
               !Exists();
    });
}

LRESULT Window::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    if (!Answers()) {
        throw Failure("the program does not answer");
    }
    return Deliver(message, wParam, lParam);
}

LRESULT Window::Deliver(UINT message, WPARAM wParam, LPARAM lParam) const {
    DWORD_PTR result = 0;
    if (::SendMessageTimeoutW(handle, message, wParam, lParam, SMTO_NORMAL, answerTimeout,
                              &result) == 0) {
        throw Failure(Exists() ? "the program does not answer message " + std::to_string(message)
                               : "the window has gone");
    }
    return static_cast<LRESULT>(result);
}

void Window::Post(UINT message, WPARAM wParam, LPARAM lParam) const {
    if (::PostMessageW(handle, message, wParam, lParam) == 0) {
        throw Failure("the window has gone");
    }
}

}  // namespace driver
