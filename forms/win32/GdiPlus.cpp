#include "forms/win32/GdiPlus.h"

#include <windows.h>
#include <objidl.h>
#include <shlwapi.h>
#include <gdiplus.h>

#include <cstdint>
#include <memory>

namespace forms::win32::gdiplus {

namespace {

constexpr ULONGLONG keptFor = 2000;  // milliseconds

namespace flat = Gdiplus::DllExports;

// The loaded library.
class Library {
  public:
    Library() : module(::LoadLibraryExW(L"gdiplus.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) {
        Find(startup, "GdiplusStartup");
        Find(shutdown, "GdiplusShutdown");
        Find(createFromStream, "GdipCreateBitmapFromStream");
        Find(createOverMemory, "GdipCreateBitmapFromScan0");
        Find(dispose, "GdipDisposeImage");
        Find(getWidth, "GdipGetImageWidth");
        Find(getHeight, "GdipGetImageHeight");
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

    bool Works() const { return works; }

    decltype(&Gdiplus::GdiplusStartup) startup = nullptr;
    decltype(&Gdiplus::GdiplusShutdown) shutdown = nullptr;
    decltype(&flat::GdipCreateBitmapFromStream) createFromStream = nullptr;
    decltype(&flat::GdipCreateBitmapFromScan0) createOverMemory = nullptr;
    decltype(&flat::GdipDisposeImage) dispose = nullptr;
    decltype(&flat::GdipGetImageWidth) getWidth = nullptr;
    decltype(&flat::GdipGetImageHeight) getHeight = nullptr;
    decltype(&flat::GdipGetImageGraphicsContext) getGraphics = nullptr;
    decltype(&flat::GdipDeleteGraphics) deleteGraphics = nullptr;
    decltype(&flat::GdipCreateImageAttributes) createAttributes = nullptr;
    decltype(&flat::GdipSetImageAttributesWrapMode) setWrapMode = nullptr;
    decltype(&flat::GdipDisposeImageAttributes) disposeAttributes = nullptr;
    decltype(&flat::GdipSetInterpolationMode) setInterpolation = nullptr;
    decltype(&flat::GdipSetPixelOffsetMode) setPixelOffset = nullptr;
    decltype(&flat::GdipDrawImageRectRectI) drawImage = nullptr;

  private:
    template <class Function>
    void Find(Function& function, const char* name) {
        const FARPROC address = module != nullptr ? ::GetProcAddress(module, name) : nullptr;
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(address));
        complete = complete && function != nullptr;
    }

    HMODULE module;
    ULONG_PTR token = 0;
    bool complete = true;
    bool works = false;
};

// A decoded picture; null where the bytes are none.
class Decoded {
  public:
    Decoded(const Library& pictureLibrary, const std::string& pictureBytes)
        : library(pictureLibrary), bytes(pictureBytes) {
        IStream* stream = ::SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()),
                                              static_cast<UINT>(bytes.size()));
        if (stream == nullptr) {
            return;
        }
        library.createFromStream(stream, &image);
        stream->Release();  // the picture holds its own reference
        UINT width = 0;
        UINT height = 0;
        if (image != nullptr && library.getWidth(image, &width) == Gdiplus::Ok &&
            library.getHeight(image, &height) == Gdiplus::Ok) {
            size = {static_cast<LONG>(width), static_cast<LONG>(height)};
        }
    }
    ~Decoded() {
        if (image != nullptr) {
            library.dispose(image);
        }
    }
    Decoded(const Decoded&) = delete;
    Decoded& operator=(const Decoded&) = delete;

    bool Is(const std::string& other) const { return bytes == other; }
    bool IsPicture() const { return size.cx > 0 && size.cy > 0; }
    SIZE Size() const { return size; }

    // Drawn over the whole of the target, a bitmap of this size.
    void DrawOn(Gdiplus::GpImage* target, SIZE targetSize) const {
        Gdiplus::GpGraphics* graphics = nullptr;
        Gdiplus::GpImageAttributes* attributes = nullptr;
        if (library.getGraphics(target, &graphics) != Gdiplus::Ok) {
            return;
        }
        // The borders of an enlarged picture are not mixed with what lies beyond them.
        if (library.createAttributes(&attributes) == Gdiplus::Ok) {
            library.setWrapMode(attributes, Gdiplus::WrapModeTileFlipXY, 0, FALSE);
        }
        library.setInterpolation(graphics, Gdiplus::InterpolationModeHighQualityBicubic);
        library.setPixelOffset(graphics, Gdiplus::PixelOffsetModeHalf);
        library.drawImage(graphics, image, 0, 0, targetSize.cx, targetSize.cy, 0, 0, size.cx,
                          size.cy, Gdiplus::UnitPixel, attributes, nullptr, nullptr);
        if (attributes != nullptr) {
            library.disposeAttributes(attributes);
        }
        library.deleteGraphics(graphics);
    }

  private:
    const Library& library;
    const std::string bytes;
    Gdiplus::GpBitmap* image = nullptr;
    SIZE size{};
};

// What is loaded. A picture is measured first and drawn soon afterwards: it is decoded once.
struct Loaded {
    std::unique_ptr<Library> library;
    std::unique_ptr<Decoded> last;
    ULONGLONG usedAt = 0;
};

Loaded& Current() {
    static Loaded loaded;
    return loaded;
}

const Decoded* Decode(const std::string& bytes) {
    Loaded& loaded = Current();
    loaded.usedAt = ::GetTickCount64();
    if (!loaded.library) {
        loaded.library = std::make_unique<Library>();
    }
    if (!loaded.library->Works()) {
        return nullptr;
    }
    if (!loaded.last || !loaded.last->Is(bytes)) {
        loaded.last = std::make_unique<Decoded>(*loaded.library, bytes);
    }
    return loaded.last->IsPicture() ? loaded.last.get() : nullptr;
}

}  // namespace

std::optional<SIZE> SizeOf(const std::string& bytes) {
    const Decoded* picture = Decode(bytes);
    return picture != nullptr ? std::optional(picture->Size()) : std::nullopt;
}

HBITMAP Render(const std::string& bytes, SIZE size) {
    const Decoded* picture = Decode(bytes);
    if (picture == nullptr || size.cx <= 0 || size.cy <= 0) {
        return nullptr;
    }
    constexpr int bytesPerPixel = 4;
    BITMAPINFO description{};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = size.cx;
    description.bmiHeader.biHeight = -size.cy;  // the first row is the top one
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 8 * bytesPerPixel;
    void* pixels = nullptr;
    HBITMAP bitmap = ::CreateDIBSection(nullptr, &description, DIB_RGB_COLORS, &pixels, nullptr, 0);
    if (bitmap == nullptr) {
        return nullptr;
    }
    const Library& library = *Current().library;
    Gdiplus::GpBitmap* target = nullptr;
    if (library.createOverMemory(size.cx, size.cy, size.cx * bytesPerPixel, PixelFormat32bppPARGB,
                                 static_cast<BYTE*>(pixels), &target) == Gdiplus::Ok) {
        picture->DrawOn(target, size);
        library.dispose(target);
    }
    return bitmap;
}

void ReleaseIfUnused() {
    Loaded& loaded = Current();
    if (loaded.library && ::GetTickCount64() - loaded.usedAt >= keptFor) {
        loaded.last.reset();
        loaded.library.reset();
    }
}

}  // namespace forms::win32::gdiplus
