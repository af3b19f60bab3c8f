#include <windows.h>
#include <commctrl.h>

#include "forms/Gestures.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Peers.h"
#include "forms/win32/Utf.h"

namespace forms::win32 {

namespace {

class ListBoxPeer : public Peer {
  public:
    ListBoxPeer(FormWindow& formWindow, ListBox& peerBox)
        : Peer(formWindow, peerBox), listBox(peerBox) {}

    void Create() override {
        CreateNative(WC_LISTBOXW, std::string(),
                     WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, WS_EX_CLIENTEDGE);
        ShowItems();
    }

    void Apply(Aspect aspect) override {
        if (aspect == Aspect::Items) {
            ShowItems();
        } else if (aspect == Aspect::Value) {
            ShowIndex();
        } else {
            Peer::Apply(aspect);
        }
    }

    void OnCommand(int code) override {
        if (code == LBN_SELCHANGE) {
            gestures::Select(listBox, static_cast<int>(::SendMessageW(handle, LB_GETCURSEL, 0, 0)));
        } else if (code == LBN_DBLCLK) {
            gestures::DoubleClick(listBox);
        }
    }

  private:
    void ShowItems() {
        const auto top = ::SendMessageW(handle, LB_GETTOPINDEX, 0, 0);
        ::SendMessageW(handle, WM_SETREDRAW, FALSE, 0);
        ::SendMessageW(handle, LB_RESETCONTENT, 0, 0);
        for (const std::string& item : listBox.items()) {
            ::SendMessageW(handle, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item).c_str()));
        }
        ::SendMessageW(handle, LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
        ShowIndex();
        ::SendMessageW(handle, WM_SETREDRAW, TRUE, 0);
        Redraw();
    }

    void ShowIndex() {
        ::SendMessageW(handle, LB_SETCURSEL, static_cast<WPARAM>(listBox.listIndex()), 0);
    }

    ListBox& listBox;
};

}  // namespace

std::unique_ptr<Peer> MakeListBoxPeer(FormWindow& window, ListBox& listBox) {
    return std::make_unique<ListBoxPeer>(window, listBox);
}

}  // namespace forms::win32
