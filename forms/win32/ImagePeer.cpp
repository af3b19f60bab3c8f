#include <windows.h>
#include <commctrl.h>

#include "forms/win32/Accessibility.h"
#include "forms/win32/FormWindow.h"
#include "forms/win32/Images.h"
#include "forms/win32/Peers.h"
#include "forms/win32/SurfacePeer.h"

namespace forms::win32 {

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
    // Screen readers take the name from the native window's text, so only the role is missing.
    bool Describe() override { return MarkAsGraphic(handle); }

  private:
    Image& image;
    images::View view;
    RECT shown{};  // the place where it was last painted
};

}  // namespace

std::unique_ptr<Peer> MakeImagePeer(FormWindow& window, Image& image) {
    return std::make_unique<ImagePeer>(window, image);
}

}  // namespace forms::win32
