#include <windows.h>
#include <commctrl.h>

#include <algorithm>

#include "forms/win32/Accessibility.h"
#include "forms/win32/Drawing.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Images.h"
#include "forms/win32/PaintedPeer.h"
#include "forms/win32/Peers.h"
#include "forms/win32/SurfacePeer.h"

namespace forms::win32 {

void PaintedPeer::Layout() {
    window.surface.Invalidate(shown);
    shown = Area();
    window.surface.Invalidate(shown);
}

namespace {

// An image. It is painted with the form's surface. An image with a name also has a native window,
// so that screen readers find it. That window shows the surface below it.
class ImagePeer : public SurfacePeer {
  public:
    ImagePeer(FormWindow& formWindow, Image& peerImage)
        : SurfacePeer(formWindow, peerImage), image(peerImage) {}

    void Create() override {
        shown = Area();
        if (!image.accessibleName.empty()) {
            CreateNative(WC_STATICW, image.accessibleName, SS_NOPREFIX);
        }
    }

    void Apply(Aspect aspect) override {
        SurfacePeer::Apply(aspect);
        window.surface.Invalidate(shown);
    }

    void Layout() override {
        window.surface.Invalidate(shown);
        shown = Area();
        window.surface.Invalidate(shown);
        SurfacePeer::Layout();
    }

    void Paint(HDC dc) override {
        if (!image.picture().path.empty()) {
            view.Draw(dc, image.picture().path, Area());
        } else if (*image.resourceName != '\0') {
            images::DrawResource(dc, image.resourceName, Area());
        }
    }

  protected:
    void PaintOver(HDC /*dc*/, const RECT& /*inside*/) override {}
    // The text of the native window is its name.
    bool Describe() override { return MarkAsGraphic(handle); }

  private:
    Image& image;
    images::View view;
    RECT shown{};  // the place where it was last painted
};

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

std::unique_ptr<Peer> MakeImagePeer(FormWindow& window, Image& image) {
    return std::make_unique<ImagePeer>(window, image);
}

std::unique_ptr<Peer> MakeShapePeer(FormWindow& window, Shape& shape) {
    return std::make_unique<ShapePeer>(window, shape);
}

std::unique_ptr<Peer> MakeLinePeer(FormWindow& window, Line& line) {
    return std::make_unique<LinePeer>(window, line);
}

}  // namespace forms::win32
