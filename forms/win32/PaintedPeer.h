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
    RECT shown{};  // where it was painted
};

}  // namespace forms::win32
