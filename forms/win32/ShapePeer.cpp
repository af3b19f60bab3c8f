#include <algorithm>

#include "forms/win32/Drawing.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/PaintedPeer.h"
#include "forms/win32/Peers.h"

namespace forms::win32 {

namespace {

class ShapePeer : public PaintedPeer {
  public:
    ShapePeer(FormWindow& formWindow, Shape& peerShape)
        : PaintedPeer(formWindow, peerShape), shape(peerShape) {}

    void Paint(HDC dc) override {
        HPEN pen =
            ::CreatePen(PS_SOLID, window.surface.LineThickness(), ToColorRef(shape.borderColor()));
        {
            const Selected outline(dc, pen);
            const Selected inside(dc, SolidBrush(ToColorRef(shape.fillColor())));
            Outline(dc, Area());
        }
        ::DeleteObject(pen);
    }

  private:
    void Outline(HDC dc, const RECT& area) const {
        const int width = area.right - area.left;
        const int height = area.bottom - area.top;
        const int smaller = std::min(width, height);
        switch (shape.shape) {
            case ShapeKind::Rectangle:
                ::Rectangle(dc, area.left, area.top, area.right, area.bottom);
                break;
            case ShapeKind::RoundedRectangle:
                ::RoundRect(dc, area.left, area.top, area.right, area.bottom, smaller / 3,
                            smaller / 3);
                break;
            case ShapeKind::Circle: {
                const int left = area.left + (width - smaller) / 2;
                const int top = area.top + (height - smaller) / 2;
                ::Ellipse(dc, left, top, left + smaller, top + smaller);
                break;
            }
        }
    }

    Shape& shape;
};

}  // namespace

std::unique_ptr<Peer> MakeShapePeer(FormWindow& window, Shape& shape) {
    return std::make_unique<ShapePeer>(window, shape);
}

}  // namespace forms::win32
