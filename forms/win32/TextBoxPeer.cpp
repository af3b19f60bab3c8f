#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cwctype>

#include "forms/Gestures.h"
#include "forms/win32/Drawing.h"
#include "forms/win32/Fonts.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Peers.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

// The characters that Ctrl+A and Ctrl+Backspace produce. Older systems ignore the first and insert
// the second.
constexpr WPARAM controlA = 1;
constexpr WPARAM controlBackspace = 0x7F;

class TextBoxPeer : public Peer {
  public:
    TextBoxPeer(FormWindow& formWindow, TextBox& peerBox)
        : Peer(formWindow, peerBox), textBox(peerBox) {}

    void Create() override {
        DWORD style = WS_TABSTOP;
        // If the control is created without a scroll bar, it never updates the bar's range.
        style |= textBox.multiLine
                     ? DWORD{ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL}
                     : DWORD{ES_AUTOHSCROLL};
        if (textBox.readOnly) {
            style |= ES_READONLY;
        }
        CreateNative(WC_EDITW, std::string(), style, WS_EX_CLIENTEDGE);
        ::SendMessageW(handle, EM_SETLIMITTEXT, 0, 0);
        if (!textBox.multiLine) {
            // Makes the system send WM_NCCALCSIZE again. The first one came before this peer was
            // attached.
            ::SetWindowPos(
                handle, nullptr, 0, 0, 0, 0,
                SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
        }
        ShowText();
    }

    void Apply(Aspect aspect) override {
        if (aspect == Aspect::Text) {
            ShowText();
            return;
        }
        Peer::Apply(aspect);
        if (aspect == Aspect::FontSize) {
            UpdateScrollBar();
        }
    }

    void Layout() override {
        Peer::Layout();
        UpdateScrollBar();
    }

    void Restyle() override {
        Peer::Restyle();
        UpdateScrollBar();
    }

    void OnCommand(int code) override {
        if (code == EN_CHANGE && !settingText) {
            UpdateScrollBar();
            gestures::Typed(textBox);
        }
    }

    HBRUSH OnColor(HDC dc) override {
        const COLORREF back = Back();
        const COLORREF wanted = textBox.enabled ? ToColorRef(textBox.foreColor, COLOR_WINDOWTEXT)
                                                : ::GetSysColor(COLOR_GRAYTEXT);
        ::SetTextColor(dc, ReadableOn(back, wanted));
        ::SetBkColor(dc, back);
        return SolidBrush(back);
    }

  protected:
    HFONT Font() const override {
        return fonts::Get(std::string(), textBox.fontSize, false, window.scale);
    }

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (!textBox.multiLine) {
            if (const auto result = OnRoomMessage(message, wParam, lParam)) {
                return result;
            }
        }
        switch (message) {
            case WM_GETDLGCODE:
                return DialogCode(message, wParam, lParam);
            case WM_CHAR:
                if (wParam == controlA) {
                    ::SendMessageW(handle, EM_SETSEL, 0, -1);
                    return 0;
                }
                return wParam == controlBackspace ? std::optional<LRESULT>(0) : std::nullopt;
            case WM_KEYDOWN:
                if (wParam == VK_BACK && ::GetKeyState(VK_CONTROL) < 0) {
                    DeleteWordBefore();
                    return 0;
                }
                if (wParam == VK_ESCAPE && textBox.multiLine) {
                    return 0;  // The control would close the window.
                }
                return Peer::OnMessage(message, wParam, lParam);
            case WM_SETTEXT: {
                const LRESULT result = Default(message, wParam, lParam);
                // If a tool sets the text of a multi-line control, the control does not report the
                // change.
                if (!settingText && textBox.multiLine) {
                    OnCommand(EN_CHANGE);
                }
                return result;
            }
            case EM_SETHANDLE:
            case EM_SETWORDBREAKPROC:
                // Only other programs send these messages, and the control would use an invalid
                // pointer.
                return 0;
            case WM_LBUTTONDBLCLK:
                doubleClicked = true;
                return std::nullopt;
            case WM_LBUTTONUP:
                if (doubleClicked) {
                    // The double click is reported when the button is released. If its handler
                    // opened a menu earlier, the menu would take the release as a choice.
                    doubleClicked = false;
                    Default(message, wParam, lParam);
                    gestures::DoubleClick(textBox);
                    return 0;
                }
                return Peer::OnMessage(message, wParam, lParam);
            default:
                return Peer::OnMessage(message, wParam, lParam);
        }
    }

  private:
    COLORREF Back() const {
        const bool isPlain = textBox.enabled && !textBox.readOnly;
        return ToColorRef(textBox.backColor, isPlain ? COLOR_WINDOW : COLOR_BTNFACE);
    }

    // The system starts the line three pixels below the edge, however high the box is. Here the
    // line is in the middle of the box, so that it is level with the label and the check box beside
    // it.
    int RoomAbove() const {
        constexpr int systemsOwn = 3;
        const RECT area = Area();
        return std::max((static_cast<int>(area.bottom - area.top) - LineHeight()) / 2 - systemsOwn,
                        0);
    }

    int LineHeight() const {
        HDC dc = ::GetDC(handle);
        TEXTMETRICW metrics{};
        {
            const Selected font(dc, Font());
            ::GetTextMetricsW(dc, &metrics);
        }
        ::ReleaseDC(handle, dc);
        return metrics.tmHeight;
    }

    std::optional<LRESULT> OnRoomMessage(UINT message, WPARAM wParam, LPARAM lParam) {
        switch (message) {
            case WM_NCCALCSIZE: {
                const LRESULT result = Default(message, wParam, lParam);
                auto* inside = reinterpret_cast<RECT*>(lParam);
                inside->top = std::min(inside->top + RoomAbove(), inside->bottom);
                return result;
            }
            case WM_NCPAINT: {
                const LRESULT result = Default(message, wParam, lParam);
                PaintRoomAbove();
                return result;
            }
            case WM_NCHITTEST:
                return HTCLIENT;
            case WM_ENABLE: {
                const LRESULT result = Default(message, wParam, lParam);
                ::RedrawWindow(handle, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
                return result;
            }
            default:
                return std::nullopt;
        }
    }

    void PaintRoomAbove() {
        RECT whole{};
        ::GetWindowRect(handle, &whole);
        RECT room{0, 0, whole.right - whole.left, RoomAbove()};
        const int edge = ::GetSystemMetrics(SM_CYEDGE);
        ::InflateRect(&room, -::GetSystemMetrics(SM_CXEDGE), 0);
        ::OffsetRect(&room, 0, edge);
        HDC dc = ::GetWindowDC(handle);
        ::FillRect(dc, &room, SolidBrush(Back()));
        ::ReleaseDC(handle, dc);
    }

    void ShowText() {
        settingText = true;
        SetCaption(textBox.text());
        settingText = false;
        UpdateScrollBar();
    }

    void DeleteWordBefore() {
        if (textBox.readOnly) {
            return;
        }
        DWORD start = 0;
        DWORD end = 0;
        ::SendMessageW(handle, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                       reinterpret_cast<LPARAM>(&end));
        if (start == end) {
            std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(handle)) + 1, L'\0');
            text.resize(static_cast<std::size_t>(
                ::GetWindowTextW(handle, text.data(), static_cast<int>(text.size()))));
            const auto isSpace = [&](DWORD at) { return ::iswspace(text[at]) != 0; };
            while (start > 0 && isSpace(start - 1)) {
                --start;
            }
            while (start > 0 && !isSpace(start - 1)) {
                --start;
            }
            ::SendMessageW(handle, EM_SETSEL, start, static_cast<LPARAM>(end));
        }
        ::SendMessageW(handle, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
    }

    // The Tab key leaves a multi-line box. When the focus returns to the box, its text is not
    // selected. Otherwise the next key would replace the whole note.
    LRESULT DialogCode(UINT message, WPARAM wParam, LPARAM lParam) {
        const LRESULT code = Default(message, wParam, lParam);
        const LRESULT left = DLGC_WANTTAB | DLGC_WANTALLKEYS | DLGC_HASSETSEL;
        return textBox.multiLine ? code & ~left : code;
    }

    // Shows the scroll bar only if the text needs it. A text that fits beside the bar also fits
    // without it, so the bar does not flicker.
    void UpdateScrollBar() {
        if (!textBox.multiLine) {
            return;
        }
        RECT inside{};
        ::SendMessageW(handle, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&inside));
        const auto lines = static_cast<LONG>(::SendMessageW(handle, EM_GETLINECOUNT, 0, 0));
        const bool needed = lines * LineHeight() > inside.bottom - inside.top;
        const bool shown = (::GetWindowLongPtrW(handle, GWL_STYLE) & WS_VSCROLL) != 0;
        if (needed != shown) {
            ::ShowScrollBar(handle, SB_VERT, needed ? TRUE : FALSE);
        }
    }

    TextBox& textBox;
    bool settingText = false;
    bool doubleClicked = false;
};

}  // namespace

std::unique_ptr<Peer> MakeTextBoxPeer(FormWindow& window, TextBox& textBox) {
    return std::make_unique<TextBoxPeer>(window, textBox);
}

}  // namespace forms::win32
