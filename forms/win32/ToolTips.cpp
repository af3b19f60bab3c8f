#include "forms/win32/ToolTips.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "forms/win32/Fonts.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Peer.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

constexpr int widthInTwips = 6000;  // longer tips are wrapped

}  // namespace

// The system could relay the messages itself (TTF_SUBCLASS). That would be slower, because it reads
// a property of the window at each message.
void ToolTips::Relay(HWND target, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_MOUSEMOVE:
            if (HasPointerMoved(target, lParam) && tips == nullptr) {
                Create();
            }
            break;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONUP:
        case WM_MBUTTONDOWN:
        case WM_MBUTTONUP:
            break;
        default:
            return;
    }
    if (tips != nullptr) {
        MSG relayed{};
        relayed.hwnd = target;
        relayed.message = message;
        relayed.wParam = wParam;
        relayed.lParam = lParam;
        ::SendMessageW(tips, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
    }
}

// The system also sends a move if a window appears below the pointer. Do not create the window of
// the tips then, because its creation goes through all windows of the desktop.
bool ToolTips::HasPointerMoved(HWND target, LPARAM place) const {
    POINT now{GET_X_LPARAM(place), GET_Y_LPARAM(place)};
    ::ClientToScreen(target, &now);
    const auto before = std::exchange(window.state.pointer, now);
    return !before || before->x != now.x || before->y != now.y;
}

void ToolTips::Create() {
    const auto& peers = window.controls.Peers();
    if (std::ranges::all_of(peers,
                            [](const auto& peer) { return peer->control.toolTip().empty(); })) {
        return;
    }
    tips = ::CreateWindowExW(WS_EX_TOPMOST | WS_EX_TRANSPARENT, TOOLTIPS_CLASSW, nullptr,
                             WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                             CW_USEDEFAULT, CW_USEDEFAULT, window.handle, nullptr,
                             ::GetModuleHandleW(nullptr), nullptr);
    FollowScale();
    for (const auto& peer : peers) {
        Update(*peer);
    }
}

void ToolTips::Update(const Peer& peer) const {
    if (tips == nullptr) {
        return;
    }
    const Control& control = peer.control;
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = window.handle;
    if (peer.IsTransparent()) {
        // Mouse messages go to the form itself, so the tool is an area of the form.
        tool.uId = reinterpret_cast<UINT_PTR>(&control);
        tool.rect = peer.Area();
    } else {
        tool.uFlags = TTF_IDISHWND;
        tool.uId = reinterpret_cast<UINT_PTR>(peer.handle);
    }
    ::SendMessageW(tips, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (control.toolTip().empty() || !control.IsEffectivelyVisible()) {
        return;
    }
    std::wstring text = Wide(control.toolTip());
    tool.lpszText = text.data();
    ::SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void ToolTips::FollowScale() const {
    if (tips != nullptr) {
        ::SendMessageW(tips, WM_SETFONT, reinterpret_cast<WPARAM>(fonts::ForTips(window.scale.dpi)),
                       FALSE);
        ::SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, window.scale.Pixels(widthInTwips));
    }
}

}  // namespace forms::win32
