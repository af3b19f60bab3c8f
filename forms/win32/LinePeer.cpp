#include <algorithm>

#include "forms/win32/Drawing.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/PaintedPeer.h"
#include "forms/win32/Peers.h"

namespace forms::win32 {

namespace {

class LinePeer : public PaintedPeer {
  public:
    LinePeer(FormWindow& formWindow, Line& peerLine)
        : PaintedPeer(formWindow, peerLine), line(peerLine) {}

    // A line has no thickness of its own. A place without height or width is drawn as thick as the
    // outline of a shape.
    void Paint(HDC dc) override {
        const int thickness = window.surface.LineThickness();
        RECT area = Area();
        area.right = std::max<LONG>(area.right, area.left + thickness);
        area.bottom = std::max<LONG>(area.bottom, area.top + thickness);
        ::FillRect(
            dc, &area,
            SolidBrush(ReadableOn(window.surface.ColorBehind(line), ToColorRef(line.color()))));
    }

  private:
    Line& line;
};

}  // namespace

std::unique_ptr<Peer> MakeLinePeer(FormWindow& window, Line& line) {
    return std::make_unique<LinePeer>(window, line);
}

}  // namespace forms::win32
