#pragma once

#include "forms/win32/Peer.h"

namespace forms::win32 {

// A control without a native window: the form paints it.
class PaintedPeer : public Peer {
  public:
    using Peer::Peer;
    void Create() override { shown = Area(); }
    void Layout() override;

  private:
    RECT shown{};  // the place where it was last painted
};

}  // namespace forms::win32
