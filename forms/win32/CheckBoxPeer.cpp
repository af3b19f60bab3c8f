#include <windows.h>
#include <commctrl.h>

#include "forms/Gestures.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Peers.h"

namespace forms::win32 {

namespace {

// The model decides which value follows a click. The native control only shows it.
class CheckBoxPeer : public Peer {
  public:
    CheckBoxPeer(FormWindow& formWindow, CheckBox& peerBox)
        : Peer(formWindow, peerBox), box(peerBox) {}

    void Create() override {
        CreateNative(WC_BUTTONW, box.caption, WS_TABSTOP | BS_3STATE | BS_MULTILINE);
        ShowValue();
    }

    void Apply(Aspect aspect) override {
        if (aspect == Aspect::Value) {
            ShowValue();
        } else {
            Peer::Apply(aspect);
        }
    }

    void OnCommand(int code) override {
        if (code == BN_CLICKED) {
            gestures::Click(box);
        }
    }

  private:
    void ShowValue() { ::SendMessageW(handle, BM_SETCHECK, static_cast<WPARAM>(box.value()), 0); }

    CheckBox& box;
};

}  // namespace

std::unique_ptr<Peer> MakeCheckBoxPeer(FormWindow& window, CheckBox& box) {
    return std::make_unique<CheckBoxPeer>(window, box);
}

}  // namespace forms::win32
