#pragma once

#include <windows.h>
#include <commctrl.h>

#include "forms/win32/Peer.h"

namespace forms::win32 {

// A tool bar. Each of its buttons has its own command number: firstId, plus a hundred for each
// earlier tool bar of the form, plus the button's place.
class ToolbarPeer : public Peer {
  public:
    static constexpr int firstId = 2000;
    static constexpr int idsPerToolbar = 100;

    ToolbarPeer(FormWindow& formWindow, Toolbar& peerToolbar);

    void Create() override;
    void Apply(Aspect aspect) override;
    void Layout() override;
    void Restyle() override;

    bool PressButton(int id) override;
    std::optional<LRESULT> OnNotify(NMHDR& header) override;

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    bool HasButton(int id) const;
    bool OnKey(WPARAM key);
    // Marks the button that a key will press: the next enabled button from this place on, in steps
    // of this size.
    void MarkFrom(int place, int step);
    void ShowMark(int place) const;
    void ShowButtons();
    void SetTipFont() const;
    int ButtonPixels() const;
    const Toolbar::Button& ButtonOf(int id) const;

    Toolbar& toolbar;
    int baseId = firstId;
    int marked = 0;  // place of the button that a key will press
};

}  // namespace forms::win32
