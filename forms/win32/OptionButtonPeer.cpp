#include <windows.h>
#include <commctrl.h>
#include <uxtheme.h>

#include "forms/Gestures.h"
#include "forms/win32/Drawing.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/LateLibrary.h"
#include "forms/win32/Peers.h"

namespace forms::win32 {

namespace {

// The model decides which button of a group is selected. The native control only shows it.
class OptionButtonPeer : public Peer {
  public:
    OptionButtonPeer(FormWindow& formWindow, OptionButton& peerButton)
        : Peer(formWindow, peerButton), button(peerButton) {}

    void Create() override {
        CreateNative(WC_BUTTONW, button.caption, BS_RADIOBUTTON | BS_MULTILINE);
        ShowValue();
        FollowColors();
    }

    void Apply(Aspect aspect) override {
        if (aspect == Aspect::Value) {
            ShowValue();
        } else {
            Peer::Apply(aspect);
        }
    }

    void OnCommand(int code) override {
        // If a button that is not selected gets the focus, it reports a click, too.
        if (code == BN_CLICKED && !window.state.movingFocus && !button.value()) {
            gestures::Click(button);
        }
    }

    HBRUSH OnColor(HDC dc) override {
        if (!button.backColor()) {
            return nullptr;
        }
        const COLORREF back = ToColorRef(*button.backColor());
        ::SetBkColor(dc, back);
        ::SetTextColor(dc, ReadableOn(back, ::GetSysColor(COLOR_BTNTEXT)));
        return SolidBrush(back);
    }

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        const auto result = Peer::OnMessage(message, wParam, lParam);
        if (message == WM_SYSCOLORCHANGE) {
            FollowColors();
        }
        if (message == WM_SETFOCUS && window.IsLive() && !window.state.movingFocus) {
            SelectByArrowKey(window.controls.Find(reinterpret_cast<HWND>(wParam)));
        }
        return result;
    }

  private:
    // If the focus comes from another button of the group, the selection follows it. Some systems
    // do not report this as a click.
    void SelectByArrowKey(const Peer* from) {
        const bool byMouse = ::GetKeyState(VK_LBUTTON) < 0;
        if (from != nullptr && IsOfGroup(from->control) && !byMouse && !button.value()) {
            gestures::Click(button);
        }
    }

    // With visual styles, the system draws the caption in the user's colour and ignores the colour
    // of OnColor. In a contrast theme, that can be white on a white background.
    void FollowColors() {
        const auto isReadable = [this](int color) {
            return ReadableOn(ToColorRef(*button.backColor()), ::GetSysColor(color)) ==
                   ::GetSysColor(color);
        };
        const bool wanted =
            button.backColor() && !(isReadable(COLOR_BTNTEXT) && isReadable(COLOR_WINDOWTEXT));
        if (wanted == hasNoStyle) {
            return;
        }
        static const auto setTheme =
            FromLibrary<decltype(&::SetWindowTheme)>(L"uxtheme.dll", "SetWindowTheme");
        if (setTheme != nullptr) {
            hasNoStyle = wanted;
            const wchar_t* none = L" ";  // no theme has this name
            setTheme(handle, wanted ? none : nullptr, wanted ? none : nullptr);
        }
    }

    void ShowValue() {
        ::SendMessageW(handle, BM_SETCHECK, button.value() ? BST_CHECKED : BST_UNCHECKED, 0);
    }

    bool IsOfGroup(const Control& other) const {
        return other.kind == ControlKind::OptionButton && other.container == button.container;
    }

    OptionButton& button;
    bool hasNoStyle = false;  // drawn without visual styles
};

}  // namespace

std::unique_ptr<Peer> MakeOptionButtonPeer(FormWindow& window, OptionButton& button) {
    return std::make_unique<OptionButtonPeer>(window, button);
}

}  // namespace forms::win32
