#include "forms/win32/Decoder.h"

#include <objbase.h>
#include <shlwapi.h>
#include <wincodec.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "forms/win32/LateLibrary.h"
#include "forms/win32/Scaler.h"

namespace forms::win32::decoder {

namespace {

constexpr ULONGLONG keptFor = 2000;  // milliseconds
constexpr int bytesPerPixel = 4;
constexpr UINT longestSide = 16384;  // pixels; larger pictures are refused

// The import libraries lack this identifier.
constexpr GUID premultiplied{
    0x6fddc324, 0x4e03, 0x4bfe, {0xb1, 0x85, 0x3d, 0x77, 0x76, 0x8d, 0xc9, 0x10}};

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, Release>;

// The object that a call returns through its last argument. Null if the call fails.
template <class Interface, class Call>
Owned<Interface> Made(const Call& call) {
    Interface* made = nullptr;
    return Owned<Interface>(SUCCEEDED(call(&made)) ? made : nullptr);
}

// Keeps windowscodecs.dll loaded.
class Library {
  public:
    Library()
        : module(LoadSystemLibrary(L"windowscodecs.dll")),
          canUnload(FunctionOf<CanUnload>(module, "DllCanUnloadNow")) {
        // On some systems this function refuses even before the library has made an object. Its
        // answer is useless there.
        if (canUnload != nullptr && canUnload() != S_OK) {
            canUnload = nullptr;
        }
        ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        // Do not use CoCreateInstance: it would keep the library loaded.
        using Create = HRESULT(WINAPI*)(UINT, IWICImagingFactory**);
        if (const auto create = FunctionOf<Create>(module, "WICCreateImagingFactory_Proxy");
            create != nullptr) {
            factory = Made<IWICImagingFactory>(
                [&](auto made) { return create(WINCODEC_SDK_VERSION, made); });
        }
    }
    ~Library() {
        factory.reset();
        // Objects of the library may outlive the factory, for example in third-party codecs. In
        // that case the library stays loaded.
        if (module != nullptr && (canUnload == nullptr || canUnload() == S_OK)) {
            ::FreeLibrary(module);
        }
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    // The first frame of a picture. Null if the bytes are not a picture.
    Owned<IWICFormatConverter> Decode(const std::string& bytes) const {
        const Owned<IStream> stream(::SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()),
                                                        static_cast<UINT>(bytes.size())));
        if (!factory || !stream) {
            return nullptr;
        }
        const auto file = Made<IWICBitmapDecoder>([&](auto made) {
            return factory->CreateDecoderFromStream(stream.get(), nullptr,
                                                    WICDecodeMetadataCacheOnDemand, made);
        });
        if (!file) {
            return nullptr;
        }
        const auto frame =
            Made<IWICBitmapFrameDecode>([&](auto made) { return file->GetFrame(0, made); });
        auto converter = Made<IWICFormatConverter>(
            [&](auto made) { return factory->CreateFormatConverter(made); });
        if (!frame || !converter ||
            FAILED(converter->Initialize(frame.get(), premultiplied, WICBitmapDitherTypeNone,
                                         nullptr, 0, WICBitmapPaletteTypeCustom))) {
            return nullptr;
        }
        return converter;
    }

  private:
    using CanUnload = HRESULT(WINAPI*)();

    HMODULE module;
    CanUnload canUnload;  // null: the library is freed without asking
    Owned<IWICImagingFactory> factory;
};

class Decoded {
  public:
    Decoded(const Library& library, const std::string& pictureBytes)
        : bytes(pictureBytes), picture(library.Decode(bytes)) {
        UINT width = 0;
        UINT height = 0;
        if (picture && SUCCEEDED(picture->GetSize(&width, &height)) && width <= longestSide &&
            height <= longestSide) {
            size = {static_cast<LONG>(width), static_cast<LONG>(height)};
        }
    }

    bool Is(const std::string& other) const { return bytes == other; }
    bool IsPicture() const { return size.cx > 0 && size.cy > 0; }
    SIZE Size() const { return size; }

    // Copies the pixels in the picture's own size, with the top row first.
    void CopyTo(void* pixels) const {
        const auto row = static_cast<UINT>(size.cx * bytesPerPixel);
        picture->CopyPixels(nullptr, row, row * static_cast<UINT>(size.cy),
                            static_cast<BYTE*>(pixels));
    }

  private:
    const std::string bytes;
    Owned<IWICFormatConverter> picture;
    SIZE size{};
};

// The library and the last picture. A picture is first measured and soon afterwards drawn, so
// keeping it saves decoding it twice.
struct Loaded {
    std::unique_ptr<Library> library;
    std::unique_ptr<Scaler> scaler;
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
    if (!loaded.last || !loaded.last->Is(bytes)) {
        loaded.last = std::make_unique<Decoded>(*loaded.library, bytes);
    }
    return loaded.last->IsPicture() ? loaded.last.get() : nullptr;
}

void CopyScaled(const Decoded& picture, const Pixels32& target) {
    const SIZE size = picture.Size();
    if (size.cx == target.size.cx && size.cy == target.size.cy) {
        picture.CopyTo(target.pixels);
        return;
    }
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size.cx) *
                                      static_cast<std::size_t>(size.cy));
    picture.CopyTo(pixels.data());
    Loaded& loaded = Current();
    if (!loaded.scaler) {
        loaded.scaler = std::make_unique<Scaler>();
    }
    loaded.scaler->Scale({pixels.data(), size}, target);
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
    BITMAPINFO description{};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = size.cx;
    description.bmiHeader.biHeight = -size.cy;  // the first row is the top one
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 8 * bytesPerPixel;
    void* pixels = nullptr;
    HBITMAP bitmap = ::CreateDIBSection(nullptr, &description, DIB_RGB_COLORS, &pixels, nullptr, 0);
    if (bitmap != nullptr) {
        CopyScaled(*picture, {pixels, size});
    }
    return bitmap;
}

void ReleaseIfUnused() {
    Loaded& loaded = Current();
    if (loaded.library && ::GetTickCount64() - loaded.usedAt >= keptFor) {
        loaded.last.reset();
        loaded.scaler.reset();
        loaded.library.reset();
    }
}

}  // namespace forms::win32::decoder
