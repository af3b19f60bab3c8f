#pragma once

#include "forms/win32/Peer.h"

namespace forms::win32 {

// A label, a group box or an image. It has a native control, so that tools and screen readers find
// it by its caption (an image only if it has a name). But this class paints it, so that the form's
// pictures and coloured shapes show through it, and changing its caption does not cause flicker.
class SurfacePeer : public Peer {
  public:
    using Peer::Peer;
    bool IsTransparent() const override { return true; }
    void Apply(Aspect aspect) override;

  protected:
    // Paints on top of the form's surface. Coordinates are relative to the control.
    virtual void PaintOver(HDC dc, const RECT& inside) = 0;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void PaintAll(HDC dc, const RECT& area);
};

}  // namespace forms::win32
