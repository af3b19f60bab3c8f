#include <windows.h>
#include <commctrl.h>
#include <uxtheme.h>
#include <vssym32.h>

#include "forms/win32/Drawing.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/LateLibrary.h"
#include "forms/win32/Peers.h"
#include "forms/win32/SurfacePeer.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

// Paints the border of the user's theme. Returns false if there is no theme. The library is loaded
// when the first window with a group box, the main window, is painted. It is not linked, because
// the system searches the program's folder first for linked libraries.
bool PaintThemedBorder(HWND handle, HDC dc, const RECT& border, int look) {
    constexpr const wchar_t* library = L"uxtheme.dll";
    static const auto open = FromLibrary<decltype(&::OpenThemeData)>(library, "OpenThemeData");
    static const auto close = FromLibrary<decltype(&::CloseThemeData)>(library, "CloseThemeData");
    static const auto draw =
        FromLibrary<decltype(&::DrawThemeBackground)>(library, "DrawThemeBackground");
    if (open == nullptr || close == nullptr || draw == nullptr) {
        return false;
    }
    HTHEME theme = open(handle, WC_BUTTONW);
    if (theme == nullptr) {
        return false;
    }
    draw(theme, dc, BP_GROUPBOX, look, &border, nullptr);
    close(theme);
    return true;
}

// A group box. It is below the controls in it. It is painted with the form's surface, so that it
// does not cover the pictures in it.
class FramePeer : public SurfacePeer {
  public:
    FramePeer(FormWindow& formWindow, Frame& peerFrame)
        : SurfacePeer(formWindow, peerFrame), frame(peerFrame) {}

    void Create() override {
        // Only tools and screen readers read the native caption.
        const std::string& caption = frame.caption();
        CreateNative(WC_BUTTONW, caption.empty() ? frame.accessibleName : caption, BS_GROUPBOX);
    }

    void Paint(HDC dc) override {
        const Selected font(dc, Font());
        RECT border = Area();
        const std::wstring caption = Wide(frame.caption());
        SIZE size{};
        ::GetTextExtentPoint32W(dc, L"X", 1, &size);
        const LONG indent = size.cx;
        RECT text{border.left + indent, border.top, border.right - indent, border.top + size.cy};
        UINT format = DT_SINGLELINE;
        if ((::SendMessageW(handle, WM_QUERYUISTATE, 0, 0) & UISF_HIDEACCEL) != 0) {
            format |= DT_HIDEPREFIX;
        }
        border.top += size.cy / 2;
        const int saved = ::SaveDC(dc);
        if (!caption.empty()) {
            RECT needed = text;
            ::DrawTextW(dc, caption.c_str(), -1, &needed, format | DT_CALCRECT);
            const bool fits = needed.right <= text.right;
            text.right = fits ? needed.right : text.right;
            // The last letter may extend beyond the measured width of the text.
            format |= fits ? DT_NOCLIP : DT_END_ELLIPSIS;
            ::ExcludeClipRect(dc, text.left - gap, text.top, text.right + gap, text.bottom);
        }
        PaintBorder(dc, border);
        ::RestoreDC(dc, saved);
        ::SetBkMode(dc, TRANSPARENT);
        const COLORREF wanted =
            ::GetSysColor(frame.IsEffectivelyEnabled() ? COLOR_BTNTEXT : COLOR_GRAYTEXT);
        ::SetTextColor(dc, ReadableOn(window.surface.BackColor(), wanted));
        ::DrawTextW(dc, caption.c_str(), -1, &text, format);
    }

  protected:
    void PaintOver(HDC /*dc*/, const RECT& /*inside*/) override {}

  private:
    static constexpr LONG gap = 2;  // pixels between the caption and the border

    void PaintBorder(HDC dc, RECT border) const {
        const int look = frame.IsEffectivelyEnabled() ? GBS_NORMAL : GBS_DISABLED;
        if (!PaintThemedBorder(handle, dc, border, look)) {
            ::DrawEdge(dc, &border, EDGE_ETCHED, BF_RECT);
        }
    }

    Frame& frame;
};

}  // namespace

std::unique_ptr<Peer> MakeFramePeer(FormWindow& window, Frame& frame) {
    return std::make_unique<FramePeer>(window, frame);
}

}  // namespace forms::win32
