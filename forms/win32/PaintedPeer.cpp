#include "forms/win32/PaintedPeer.h"

#include "forms/win32/FormWindow.h"

namespace forms::win32 {

void PaintedPeer::Layout() {
    window.surface.Invalidate(shown);
    shown = Area();
    window.surface.Invalidate(shown);
}

}  // namespace forms::win32
