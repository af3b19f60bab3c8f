#include "forms/win32/Scaler.h"

#include <objidl.h>
#include <gdiplus.h>

#include "forms/win32/LateLibrary.h"

namespace forms::win32 {

namespace {

namespace flat = Gdiplus::DllExports;

constexpr int bytesPerPixel = 4;

}  // namespace

struct Scaler::Library {
    Library() : module(LoadSystemLibrary(L"gdiplus.dll")) {
        Find(startup, "GdiplusStartup");
        Find(shutdown, "GdiplusShutdown");
        Find(createOverMemory, "GdipCreateBitmapFromScan0");
        Find(dispose, "GdipDisposeImage");
        Find(getGraphics, "GdipGetImageGraphicsContext");
        Find(deleteGraphics, "GdipDeleteGraphics");
        Find(createAttributes, "GdipCreateImageAttributes");
        Find(setWrapMode, "GdipSetImageAttributesWrapMode");
        Find(disposeAttributes, "GdipDisposeImageAttributes");
        Find(setInterpolation, "GdipSetInterpolationMode");
        Find(setPixelOffset, "GdipSetPixelOffsetMode");
        Find(drawImage, "GdipDrawImageRectRectI");
        const Gdiplus::GdiplusStartupInput input;
        works = complete && startup(&token, &input, nullptr) == Gdiplus::Ok;
    }
    ~Library() {
        if (works) {
            shutdown(token);
        }
        if (module != nullptr) {
            ::FreeLibrary(module);
        }
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    // A bitmap that uses this memory. Null on failure.
    Gdiplus::GpBitmap* Over(const Pixels32& memory) const {
        Gdiplus::GpBitmap* bitmap = nullptr;
        createOverMemory(memory.size.cx, memory.size.cy, memory.size.cx * bytesPerPixel,
                         PixelFormat32bppPARGB, static_cast<BYTE*>(memory.pixels), &bitmap);
        return bitmap;
    }

    void Draw(Gdiplus::GpImage* image, SIZE size, Gdiplus::GpImage* target, SIZE targetSize) const {
        Gdiplus::GpGraphics* graphics = nullptr;
        Gdiplus::GpImageAttributes* attributes = nullptr;
        if (getGraphics(target, &graphics) != Gdiplus::Ok) {
            return;
        }
        // Without this, the borders of an enlarged picture are mixed with transparent pixels.
        if (createAttributes(&attributes) == Gdiplus::Ok) {
            setWrapMode(attributes, Gdiplus::WrapModeTileFlipXY, 0, FALSE);
        }
        setInterpolation(graphics, Gdiplus::InterpolationModeHighQualityBicubic);
        setPixelOffset(graphics, Gdiplus::PixelOffsetModeHalf);
        drawImage(graphics, image, 0, 0, targetSize.cx, targetSize.cy, 0, 0, size.cx, size.cy,
                  Gdiplus::UnitPixel, attributes, nullptr, nullptr);
        if (attributes != nullptr) {
            disposeAttributes(attributes);
        }
        deleteGraphics(graphics);
    }

    decltype(&Gdiplus::GdiplusStartup) startup = nullptr;
    decltype(&Gdiplus::GdiplusShutdown) shutdown = nullptr;
    decltype(&flat::GdipCreateBitmapFromScan0) createOverMemory = nullptr;
    decltype(&flat::GdipDisposeImage) dispose = nullptr;
    decltype(&flat::GdipGetImageGraphicsContext) getGraphics = nullptr;
    decltype(&flat::GdipDeleteGraphics) deleteGraphics = nullptr;
    decltype(&flat::GdipCreateImageAttributes) createAttributes = nullptr;
    decltype(&flat::GdipSetImageAttributesWrapMode) setWrapMode = nullptr;
    decltype(&flat::GdipDisposeImageAttributes) disposeAttributes = nullptr;
    decltype(&flat::GdipSetInterpolationMode) setInterpolation = nullptr;
    decltype(&flat::GdipSetPixelOffsetMode) setPixelOffset = nullptr;
    decltype(&flat::GdipDrawImageRectRectI) drawImage = nullptr;
    bool works = false;

  private:
    template <class Function>
    void Find(Function& function, const char* name) {
        function = FunctionOf<Function>(module, name);
        complete = complete && function != nullptr;
    }

    HMODULE module;
    ULONG_PTR token = 0;
    bool complete = true;
};

Scaler::Scaler() : library(std::make_unique<Library>()) {}
Scaler::~Scaler() = default;

void Scaler::Scale(const Pixels32& source, const Pixels32& target) const {
    if (!library->works) {
        return;
    }
    Gdiplus::GpBitmap* from = library->Over(source);
    Gdiplus::GpBitmap* to = library->Over(target);
    if (from != nullptr && to != nullptr) {
        library->Draw(from, source.size, to, target.size);
    }
    for (Gdiplus::GpBitmap* bitmap : {from, to}) {
        if (bitmap != nullptr) {
            library->dispose(bitmap);
        }
    }
}

}  // namespace forms::win32
