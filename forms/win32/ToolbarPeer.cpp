#include "forms/win32/ToolbarPeer.h"

#include <algorithm>
#include <vector>

#include "forms/Gestures.h"
#include "forms/win32/Fonts.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Images.h"
#include "forms/win32/Peers.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

constexpr int imageTwips = 360;  // 24 pixels at 96 dpi
constexpr int paddingTwips = 180;

}  // namespace

ToolbarPeer::ToolbarPeer(FormWindow& formWindow, Toolbar& peerToolbar)
    : Peer(formWindow, peerToolbar), toolbar(peerToolbar) {
    for (const Control* other : toolbar.form.Controls()) {
        if (other == &toolbar) {
            break;
        }
        if (other->kind == ControlKind::Toolbar) {
            baseId += idsPerToolbar;
        }
    }
}

void ToolbarPeer::Create() {
    CreateNative(TOOLBARCLASSNAMEW, toolbar.accessibleName,
                 WS_TABSTOP | TBSTYLE_FLAT | TBSTYLE_TRANSPARENT | TBSTYLE_TOOLTIPS |
                     CCS_NOPARENTALIGN | CCS_NORESIZE | CCS_NODIVIDER);
    ::SendMessageW(handle, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    // The texts of the buttons are only for screen readers.
    ::SendMessageW(handle, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS);
    ::SendMessageW(handle, TB_SETMAXTEXTROWS, 0, 0);
    ShowButtons();
}

void ToolbarPeer::Apply(Aspect aspect) {
    if (aspect == Aspect::Items) {
        ShowButtons();
    } else {
        Peer::Apply(aspect);
    }
}

void ToolbarPeer::Layout() {
    Peer::Layout();
    const int pixels = ButtonPixels();
    ::SendMessageW(handle, TB_SETBUTTONSIZE, 0, MAKELPARAM(pixels, pixels));
}

void ToolbarPeer::Restyle() {
    Peer::Restyle();
    ShowButtons();
    SetTipFont();
}

// The tool bar has a window of its own for its tips. Some systems create that window only when it
// is first needed or requested.
void ToolbarPeer::SetTipFont() const {
    auto* tips = reinterpret_cast<HWND>(::SendMessageW(handle, TB_GETTOOLTIPS, 0, 0));
    ::SendMessageW(tips, WM_SETFONT, reinterpret_cast<WPARAM>(fonts::ForTips(window.scale.dpi)),
                   FALSE);
}

int ToolbarPeer::ButtonPixels() const {
    const RECT area = Area();
    return std::min(static_cast<int>(area.bottom - area.top),
                    window.scale.Pixels(imageTwips + paddingTwips));
}

void ToolbarPeer::ShowButtons() {
    const auto& buttons = toolbar.buttons();
    const auto count = static_cast<int>(buttons.size());
    const int pixels = window.scale.Pixels(imageTwips);
    std::vector<std::string> pictures;
    pictures.reserve(buttons.size());
    for (const Toolbar::Button& button : buttons) {
        pictures.push_back(toolbar.imageList != nullptr
                               ? toolbar.imageList->ResourceOf(button.image)
                               : std::string());
    }
    const images::IconList& icons = images::ResourceIcons(pictures, pixels);
    while (::SendMessageW(handle, TB_DELETEBUTTON, 0, 0) != 0) {
    }
    ::SendMessageW(handle, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(icons.handle));
    ::SendMessageW(handle, TB_SETBITMAPSIZE, 0, MAKELPARAM(pixels, pixels));
    std::vector<std::wstring> texts;
    std::vector<TBBUTTON> native;
    texts.reserve(buttons.size());
    native.reserve(buttons.size());
    for (const Toolbar::Button& button : buttons) {
        texts.push_back(Wide(button.key));
    }
    for (int i = 0; i < count; ++i) {
        const Toolbar::Button& button = buttons[static_cast<std::size_t>(i)];
        TBBUTTON item{};
        item.iBitmap = icons.places[static_cast<std::size_t>(i)];
        item.idCommand = baseId + i;
        item.fsState = button.enabled ? TBSTATE_ENABLED : BYTE{0};
        item.fsStyle = BTNS_BUTTON;
        item.iString = reinterpret_cast<INT_PTR>(texts[static_cast<std::size_t>(i)].c_str());
        native.push_back(item);
    }
    ::SendMessageW(handle, TB_ADDBUTTONSW, native.size(), reinterpret_cast<LPARAM>(native.data()));
    Layout();
    Redraw();
}

// This class handles the keys, because not every system's tool bar handles all of them.
std::optional<LRESULT> ToolbarPeer::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS;
        case WM_SETFOCUS: {
            const auto result = Peer::OnMessage(message, wParam, lParam);
            if (window.IsLive()) {
                MarkFrom(marked, 1);
            }
            return result;
        }
        case WM_KILLFOCUS:
            ShowMark(-1);
            return std::nullopt;
        case WM_KEYDOWN:
            return OnKey(wParam) ? std::optional<LRESULT>(0) : std::nullopt;
        default:
            return Peer::OnMessage(message, wParam, lParam);
    }
}

bool ToolbarPeer::OnKey(WPARAM key) {
    const auto count = static_cast<int>(toolbar.buttons().size());
    switch (key) {
        case VK_LEFT:
        case VK_UP:
            MarkFrom(marked - 1, -1);
            return true;
        case VK_RIGHT:
        case VK_DOWN:
            MarkFrom(marked + 1, 1);
            return true;
        case VK_HOME:
            MarkFrom(0, 1);
            return true;
        case VK_END:
            MarkFrom(count - 1, -1);
            return true;
        case VK_RETURN:
        case VK_SPACE:
            PressButton(baseId + marked);
            return true;
        default:
            return false;
    }
}

void ToolbarPeer::MarkFrom(int place, int step) {
    const auto count = static_cast<int>(toolbar.buttons().size());
    for (int tries = 0; tries < count; ++tries, place += step) {
        const int at = (place + count) % count;
        if (ButtonOf(baseId + at).enabled) {
            marked = at;
            ShowMark(at);
            return;
        }
    }
}

void ToolbarPeer::ShowMark(int place) const {
    ::SendMessageW(handle, TB_SETHOTITEM, static_cast<WPARAM>(place), 0);
}

bool ToolbarPeer::HasButton(int id) const {
    return id >= baseId && id < baseId + static_cast<int>(toolbar.buttons().size());
}

const Toolbar::Button& ToolbarPeer::ButtonOf(int id) const {
    return toolbar.buttons()[static_cast<std::size_t>(id - baseId)];
}

bool ToolbarPeer::PressButton(int id) {
    if (!HasButton(id)) {
        return false;
    }
    gestures::ClickToolbar(toolbar, std::string(ButtonOf(id).key));
    return true;
}

// The tips do not use TTN_GETDISPINFO, because the native control would answer it with the button's
// text for screen readers.
std::optional<LRESULT> ToolbarPeer::OnNotify(NMHDR& header) {
    if (header.code != TBN_GETINFOTIPW) {
        return std::nullopt;
    }
    SetTipFont();
    const auto& request = reinterpret_cast<const NMTBGETINFOTIPW&>(header);
    if (HasButton(request.iItem) && request.cchTextMax > 0) {
        const std::wstring tip = Wide(ButtonOf(request.iItem).toolTip);
        const std::size_t length =
            tip.copy(request.pszText, static_cast<std::size_t>(request.cchTextMax) - 1);
        request.pszText[length] = L'\0';
    }
    return 0;
}

std::unique_ptr<Peer> MakeToolbarPeer(FormWindow& window, Toolbar& toolbar) {
    return std::make_unique<ToolbarPeer>(window, toolbar);
}

}  // namespace forms::win32
