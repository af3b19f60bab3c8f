#include "forms/win32/devices/WinPictures.h"

#include <windows.h>
#include <objidl.h>
#include <shlwapi.h>
#include <gdiplus.h>

#include <cstring>
#include <memory>
#include <string_view>

#include "forms/RuntimeError.h"
#include "forms/win32/devices/FileNames.h"

namespace forms::win32 {

namespace {

constexpr int twipsPerPixel = 15;
constexpr int iconPixels = 32;

[[noreturn]] void NoPicture() { throw RuntimeError(ErrorNumber::InvalidPicture); }

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};

// GDI+ counts its users, so this goes well with the one that draws.
class GdiplusSession {
  public:
    GdiplusSession() {
        const Gdiplus::GdiplusStartupInput input;
        if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) {
            NoPicture();
        }
    }
    ~GdiplusSession() { Gdiplus::GdiplusShutdown(token); }
    GdiplusSession(const GdiplusSession&) = delete;
    GdiplusSession& operator=(const GdiplusSession&) = delete;

  private:
    ULONG_PTR token = 0;
};

struct IconHeader {
    WORD reserved;
    WORD type;
    WORD count;
};

struct IconEntry {
    BYTE width, height, colors, reserved;
    WORD planes, bits;
    DWORD size, offset;
};

bool LooksLikeIcon(std::string_view bytes) {
    return bytes.starts_with(std::string_view("\0\0\1\0", 4));
}

bool IsIcon(std::string_view bytes) {
    IconHeader header{};
    IconEntry entry{};
    if (bytes.size() < sizeof header + sizeof entry) {
        return false;
    }
    std::memcpy(&header, bytes.data(), sizeof header);
    std::memcpy(&entry, bytes.data() + sizeof header, sizeof entry);
    if (header.count == 0 || entry.offset > bytes.size() ||
        entry.size > bytes.size() - entry.offset) {
        return false;
    }
    std::string image(bytes.substr(entry.offset, entry.size));
    constexpr DWORD formatVersion = 0x00030000;
    const HICON icon = ::CreateIconFromResourceEx(reinterpret_cast<BYTE*>(image.data()), entry.size,
                                                  TRUE, formatVersion, 0, 0, LR_DEFAULTCOLOR);
    return icon != nullptr && ::DestroyIcon(icon) != 0;
}

// Pixels; throws where the bytes are no picture.
SIZE SizeOf(const std::string& bytes) {
    if (LooksLikeIcon(bytes)) {
        if (!IsIcon(bytes)) {
            NoPicture();
        }
        return {iconPixels, iconPixels};
    }
    const std::unique_ptr<IStream, Release> stream(::SHCreateMemStream(
        reinterpret_cast<const BYTE*>(bytes.data()), static_cast<UINT>(bytes.size())));
    if (!stream) {
        NoPicture();
    }
    const GdiplusSession session;
    Gdiplus::Bitmap bitmap(stream.get());
    if (bitmap.GetLastStatus() != Gdiplus::Ok || bitmap.GetWidth() == 0 ||
        bitmap.GetHeight() == 0) {
        NoPicture();
    }
    return {static_cast<LONG>(bitmap.GetWidth()), static_cast<LONG>(bitmap.GetHeight())};
}

}  // namespace

Picture WinPictures::Load(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!files.FileExists(path) ||
        ::GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &data) == 0) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    const auto joined = [](DWORD high, DWORD low) {
        return (static_cast<std::uint64_t>(high) << 32U) | low;
    };
    const std::uint64_t size = joined(data.nFileSizeHigh, data.nFileSizeLow);
    const std::uint64_t changed =
        joined(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime);
    const auto found = known.find(path);
    if (found != known.end() && found->second.size == size && found->second.changed == changed) {
        return found->second.picture;
    }
    const SIZE pixels = SizeOf(files.Read(path));
    Picture picture{path, pixels.cx * twipsPerPixel, pixels.cy * twipsPerPixel};
    known.insert_or_assign(path, Known{size, changed, picture});
    return picture;
}

}  // namespace forms::win32
