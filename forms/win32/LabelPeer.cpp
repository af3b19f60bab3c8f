#include <windows.h>
#include <commctrl.h>

#include "forms/Gestures.h"
#include "forms/win32/Drawing.h"
#include "forms/win32/Fonts.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Peers.h"
#include "forms/win32/SurfacePeer.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

class LabelPeer : public SurfacePeer {
  public:
    LabelPeer(FormWindow& formWindow, Label& peerLabel)
        : SurfacePeer(formWindow, peerLabel), label(peerLabel) {}

    void Create() override {
        DWORD style = label.useMnemonic ? 0 : SS_NOPREFIX;
        style |= label.alignment == Alignment::Center  ? SS_CENTER
                 : label.alignment == Alignment::Right ? SS_RIGHT
                                                       : SS_LEFT;
        CreateNative(WC_STATICW, label.caption, style);
    }

  protected:
    HFONT Font() const override {
        return fonts::Get(label.fontName, label.fontSize, label.bold, window.scale);
    }

    void PaintOver(HDC dc, const RECT& inside) override {
        const Selected font(dc, Font());
        const COLORREF wanted = label.IsEffectivelyEnabled()
                                    ? ToColorRef(label.foreColor, COLOR_BTNTEXT)
                                    : ::GetSysColor(COLOR_GRAYTEXT);
        ::SetTextColor(dc, ReadableOn(window.surface.ColorBehind(label), wanted));
        UINT format = DT_EXPANDTABS | DT_WORDBREAK;
        format |= label.alignment == Alignment::Center  ? UINT{DT_CENTER}
                  : label.alignment == Alignment::Right ? UINT{DT_RIGHT}
                                                        : UINT{DT_LEFT};
        if (!label.useMnemonic) {
            format |= DT_NOPREFIX;
        } else if ((::SendMessageW(handle, WM_QUERYUISTATE, 0, 0) & UISF_HIDEACCEL) != 0) {
            format |= DT_HIDEPREFIX;
        }
        if (label.autoSize) {
            // The label is exactly as large as its lines, so rounding could wrap the last word.
            format &= ~UINT{DT_WORDBREAK};
        }
        const std::wstring text = Wide(label.caption());
        RECT box = inside;
        const int height = ::DrawTextW(dc, text.c_str(), -1, &box, format | DT_CALCRECT);
        box = inside;
        TEXTMETRICW line{};
        ::GetTextMetricsW(dc, &line);
        // A box for one line is a little higher than the line. The system's controls centre their
        // line in such a box, so that the texts of a row are level. In a box with room for another
        // line, the text begins at the top.
        if (const int room = inside.bottom - inside.top - height;
            room > 0 && room < line.tmHeight) {
            box.top += room / 2;
        }
        ::DrawTextW(dc, text.c_str(), -1, &box, format);
    }

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        // A mouse click goes to the form. Only tools send this message to the label.
        const bool isClick =
            message == WM_LBUTTONUP && window.state.presses.IsPressed(leftButton, &label);
        const auto result = SurfacePeer::OnMessage(message, wParam, lParam);
        if (isClick && window.IsLive()) {
            gestures::Click(label);
        }
        return result;
    }

  private:
    Label& label;
};

}  // namespace

std::unique_ptr<Peer> MakeLabelPeer(FormWindow& window, Label& label) {
    return std::make_unique<LabelPeer>(window, label);
}

}  // namespace forms::win32
