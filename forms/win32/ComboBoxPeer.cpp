#include <windows.h>
#include <commctrl.h>

#include <algorithm>

#include "forms/Gestures.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Peers.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

class ComboBoxPeer : public Peer {
  public:
    ComboBoxPeer(FormWindow& formWindow, ComboBox& peerBox)
        : Peer(formWindow, peerBox), comboBox(peerBox) {}

    void Create() override {
        CreateNative(WC_COMBOBOXW, std::string(), WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST);
        for (const std::string& item : comboBox.items) {
            ::SendMessageW(handle, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item).c_str()));
        }
        ShowIndex();
        Layout();
    }

    void Apply(Aspect aspect) override {
        if (aspect == Aspect::Value) {
            ShowIndex();
        } else {
            Peer::Apply(aspect);
        }
    }

    // The height of the native control includes its open list. The height of the closed box follows
    // from the item height.
    void Layout() override {
        const RECT area = Area();
        const int height = area.bottom - area.top;
        ::SendMessageW(handle, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1),
                       std::max(height - borders, 1));
        const auto itemHeight = static_cast<int>(::SendMessageW(handle, CB_GETITEMHEIGHT, 0, 0));
        const int rows = std::clamp(static_cast<int>(comboBox.items.size()), 1, mostRows);
        ::SetWindowPos(handle, nullptr, area.left, area.top, area.right - area.left,
                       height + rows * itemHeight + 2, SWP_NOZORDER | SWP_NOACTIVATE);
    }

    void Restyle() override {
        Peer::Restyle();
        Layout();
    }

    void OnCommand(int code) override {
        if (code != CBN_SELCHANGE && code != CBN_SELENDOK) {
            return;
        }
        const auto shown = static_cast<int>(::SendMessageW(handle, CB_GETCURSEL, 0, 0));
        // If the user chooses an entry in the open list, the system sends CBN_SELCHANGE and then
        // CBN_SELENDOK. If that entry was selected before, it may send only CBN_SELENDOK.
        if (code == CBN_SELENDOK || shown != comboBox.listIndex()) {
            gestures::Select(comboBox, shown);
        }
    }

  private:
    static constexpr int borders = 6;  // pixels that the control adds to its item height
    static constexpr int mostRows = 12;

    void ShowIndex() {
        ::SendMessageW(handle, CB_SETCURSEL, static_cast<WPARAM>(comboBox.listIndex()), 0);
    }

    ComboBox& comboBox;
};

}  // namespace

std::unique_ptr<Peer> MakeComboBoxPeer(FormWindow& window, ComboBox& comboBox) {
    return std::make_unique<ComboBoxPeer>(window, comboBox);
}

}  // namespace forms::win32
