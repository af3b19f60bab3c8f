#include "forms/win32/ToolTips.h"

#include <commctrl.h>

#include "forms/win32/Fonts.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Peer.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

constexpr int widthInTwips = 6000;  // longer tips are wrapped

}  // namespace

void ToolTips::Update(const Peer& peer) {
    const Control& control = peer.control;
    if (tips == nullptr && control.toolTip().empty()) {
        return;
    }
    if (tips == nullptr) {
        tips = ::CreateWindowExW(WS_EX_TOPMOST | WS_EX_TRANSPARENT, TOOLTIPS_CLASSW, nullptr,
                                 WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                                 CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, window.handle,
                                 nullptr, ::GetModuleHandleW(nullptr), nullptr);
        FollowScale();
    }
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = window.handle;
    if (peer.IsTransparent()) {
        // Mouse messages go to the form itself, so the tool is an area of the form.
        tool.uFlags = TTF_SUBCLASS;
        tool.uId = reinterpret_cast<UINT_PTR>(&control);
        tool.rect = peer.Area();
    } else {
        tool.uFlags = TTF_SUBCLASS | TTF_IDISHWND;
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
