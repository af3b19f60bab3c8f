#include "forms/win32/devices/WinPictures.h"

#include <windows.h>

#include <cstring>
#include <optional>
#include <string_view>

#include "base/RuntimeError.h"
#include "forms/win32/Decoder.h"
#include "forms/win32/devices/FileNames.h"

namespace forms::win32 {

namespace {

constexpr int twipsPerPixel = 15;
constexpr int iconPixels = 32;

[[noreturn]] void NoPicture() { throw base::RuntimeError(base::ErrorNumber::InvalidPicture); }

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

// The size in pixels. Throws if the bytes are not a picture.
SIZE SizeOf(const std::string& bytes) {
    if (LooksLikeIcon(bytes)) {
        if (!IsIcon(bytes)) {
            NoPicture();
        }
        return {iconPixels, iconPixels};
    }
    const std::optional<SIZE> size = decoder::SizeOf(bytes);
    if (!size) {
        NoPicture();
    }
    return *size;
}

// Returns false if the file does not exist.
bool GetFileData(const std::string& path, WIN32_FILE_ATTRIBUTE_DATA& data) try {
    return ::GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &data) != 0 &&
           (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
} catch (const base::RuntimeError&) {
    return false;  // the path is not a valid file name
}

}  // namespace

Picture WinPictures::Load(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileData(path, data)) {
        throw base::RuntimeError(base::ErrorNumber::FileNotFound);
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
