#include "tests/conformance/win32/NativeWindows.h"

#include "forms/win32/Utf.h"

namespace conformance {

namespace {

bool IsOfClass(HWND window, const wchar_t* name) {
    wchar_t actual[64] = L"";
    ::GetClassNameW(window, actual, 64);
    return ::lstrcmpiW(actual, name) == 0;
}

struct Search {
    const wchar_t* name;
    std::vector<HWND> found;
};

BOOL CALLBACK AddVisible(HWND window, LPARAM data) {
    auto& target = *reinterpret_cast<Search*>(data);
    if (::IsWindowVisible(window) != 0 && IsOfClass(window, target.name)) {
        target.found.push_back(window);
    }
    return TRUE;
}

}  // namespace

std::string TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return forms::win32::Narrow(
        std::wstring_view(text).substr(0, static_cast<std::size_t>(length)));
}

std::vector<HWND> VisibleWindowsOfClass(const wchar_t* name) {
    Search search{name, {}};
    ::EnumThreadWindows(::GetCurrentThreadId(), &AddVisible, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::vector<HWND> ChildrenOfClass(HWND parent, const wchar_t* name) {
    std::vector<HWND> found;
    for (HWND child = ::GetWindow(parent, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (IsOfClass(child, name)) {
            found.push_back(child);
        }
    }
    return found;
}

}  // namespace conformance
