#include <windows.h>
#include <commctrl.h>

#include "forms/Gestures.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Peers.h"

namespace forms::win32 {

namespace {

class ButtonPeer : public Peer {
  public:
    ButtonPeer(FormWindow& formWindow, CommandButton& peerButton)
        : Peer(formWindow, peerButton), button(peerButton) {}

    void Create() override {
        CreateNative(WC_BUTTONW, button.caption, WS_TABSTOP | BS_PUSHBUTTON | BS_MULTILINE);
    }

    void OnCommand(int code) override {
        if (code == BN_CLICKED) {
            gestures::Click(button);
        }
    }

  private:
    CommandButton& button;
};

}  // namespace

std::unique_ptr<Peer> MakeButtonPeer(FormWindow& window, CommandButton& button) {
    return std::make_unique<ButtonPeer>(window, button);
}

}  // namespace forms::win32
