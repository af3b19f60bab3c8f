#include "forms/win32/Images.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "forms/Devices.h"
#include "forms/win32/Decoder.h"
#include "forms/win32/Utf.h"

namespace forms::win32::images {

namespace {

bool IsIconFile(const std::string& path) {
    return path.size() > 4 && ::lstrcmpiA(path.c_str() + path.size() - 4, ".ico") == 0;
}

// The bytes of the file. Empty if it cannot be read.
std::string BytesOf(const std::string& path) {
    try {
        return Machine().files->FileExists(path) ? Machine().files->Read(path) : std::string();
    } catch (const base::RuntimeError&) {
        return {};
    }
}

// The bytes of the version of a picture that suits this width in pixels. Larger versions of
// "error.gif" may be beside it: "error@2x.png" and "error@3x.png" with twice and three times its
// width and height in pixels.
std::string PictureFor(const std::string& path, int width) {
    std::string best = BytesOf(path);
    const std::optional<SIZE> plain = decoder::SizeOf(best);
    LONG bestWidth = plain ? plain->cx : width;
    for (int times = 2; times <= 3 && bestWidth < width; ++times) {
        const std::string stem = path.substr(0, path.find_last_of('.'));
        std::string larger = BytesOf(stem + '@' + std::to_string(times) + "x.png");
        const std::optional<SIZE> size = decoder::SizeOf(larger);
        // If the proportions differ, the file belongs to another picture.
        if (size && size->cx == times * plain->cx && size->cy == times * plain->cy) {
            best = std::move(larger);
            bestWidth = size->cx;
        }
    }
    return best;
}

// The format of an icon file: a header and one entry for each frame.
constexpr std::size_t headerSize = 6;
constexpr std::size_t entrySize = 16;

std::uint32_t Number(const std::uint8_t* bytes, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i) {
        value |= static_cast<std::uint32_t>(bytes[i]) << (8 * i);
    }
    return value;
}

struct Frame {
    int pixels = 0;
    std::uint32_t bits = 0;
    std::uint32_t size = 0;
    std::uint32_t offset = 0;
};

// The smallest frame that is large enough, or else the largest frame. If several have this size,
// the one with the most colours.
Frame BestFrame(const std::vector<std::uint8_t>& file, int pixels) {
    Frame best;
    const std::size_t count = file.size() < headerSize ? 0 : Number(&file[4], 2);
    for (std::size_t i = 0; i < count && headerSize + (i + 1) * entrySize <= file.size(); ++i) {
        const std::uint8_t* entry = &file[headerSize + i * entrySize];
        Frame frame;
        frame.pixels = entry[0] == 0 ? 256 : entry[0];
        frame.bits = Number(entry + 6, 2);
        frame.size = Number(entry + 8, 4);
        frame.offset = Number(entry + 12, 4);
        if (frame.offset > file.size() || frame.size > file.size() - frame.offset) {
            continue;
        }
        const auto rank = [pixels](const Frame& f) {
            const bool enough = f.pixels >= pixels;
            return std::tuple(enough, enough ? -f.pixels : f.pixels, f.bits);
        };
        if (best.pixels == 0 || rank(frame) > rank(best)) {
            best = frame;
        }
    }
    return best;
}

HICON LoadResourceIcon(const std::string& name, int pixels) {
    HMODULE program = ::GetModuleHandleW(nullptr);
    HRSRC found = ::FindResourceW(program, Wide(name).c_str(), RT_RCDATA);
    if (found == nullptr) {
        return nullptr;
    }
    const auto* bytes =
        static_cast<const std::uint8_t*>(::LockResource(::LoadResource(program, found)));
    std::vector<std::uint8_t> file(bytes, bytes + ::SizeofResource(program, found));
    const Frame frame = BestFrame(file, pixels);
    if (frame.pixels == 0) {
        return nullptr;
    }
    return ::CreateIconFromResourceEx(&file[frame.offset], frame.size, TRUE, 0x00030000, pixels,
                                      pixels, LR_DEFAULTCOLOR);
}

}  // namespace

HICON FileIcon(const std::string& path, int pixels) {
    static std::map<std::pair<std::string, int>, HICON> cache;
    const auto [at, isNew] = cache.try_emplace({path, pixels}, nullptr);
    if (isNew) {
        at->second = static_cast<HICON>(
            ::LoadImageW(nullptr, Wide(path).c_str(), IMAGE_ICON, pixels, pixels, LR_LOADFROMFILE));
    }
    return at->second;
}

HICON ResourceIcon(const std::string& name, int pixels) {
    static std::map<std::pair<std::string, int>, HICON> cache;
    const auto [at, isNew] = cache.try_emplace({name, pixels}, nullptr);
    if (isNew) {
        at->second = LoadResourceIcon(name, pixels);
    }
    return at->second;
}

const IconList& ResourceIcons(const std::vector<std::string>& names, int pixels) {
    static std::map<std::pair<std::vector<std::string>, int>, IconList> cache;
    const auto [at, isNew] = cache.try_emplace({names, pixels});
    IconList& list = at->second;
    if (isNew) {
        list.handle = ::ImageList_Create(pixels, pixels, ILC_COLOR32 | ILC_MASK,
                                         static_cast<int>(names.size()), 0);
        for (const std::string& name : names) {
            list.places.push_back(
                ::ImageList_ReplaceIcon(list.handle, -1, ResourceIcon(name, pixels)));
        }
    }
    return list;
}

HICON ProgramIcon(int pixels) {
    static std::map<int, HICON> cache;
    const auto [at, isNew] = cache.try_emplace(pixels, nullptr);
    if (isNew) {
        // Use the icon with the lowest number, because the desktop shows that icon for the program.
        at->second = static_cast<HICON>(::LoadImageW(
            ::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON, pixels, pixels, 0));
    }
    return at->second;
}

View::~View() {
    if (bitmap != nullptr) {
        ::DeleteObject(bitmap);
    }
}

void View::Draw(HDC dc, const std::string& path, const RECT& area) {
    const SIZE wanted{area.right - area.left, area.bottom - area.top};
    if (IsIconFile(path)) {
        if (HICON icon = FileIcon(path, std::max(wanted.cx, wanted.cy)); icon != nullptr) {
            ::DrawIconEx(dc, area.left, area.top, icon, wanted.cx, wanted.cy, 0, nullptr,
                         DI_NORMAL);
        }
        return;
    }
    if (path != shownPath || wanted.cx != size.cx || wanted.cy != size.cy) {
        Render(path, wanted);
    }
    if (bitmap == nullptr) {
        return;
    }
    HDC memory = ::CreateCompatibleDC(dc);
    HGDIOBJ before = ::SelectObject(memory, bitmap);
    constexpr BLENDFUNCTION blending{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    ::GdiAlphaBlend(dc, area.left, area.top, size.cx, size.cy, memory, 0, 0, size.cx, size.cy,
                    blending);
    ::SelectObject(memory, before);
    ::DeleteDC(memory);
}

void View::Render(const std::string& path, SIZE wanted) {
    if (bitmap != nullptr) {
        ::DeleteObject(bitmap);
        bitmap = nullptr;
    }
    shownPath = path;
    size = wanted;
    bitmap = decoder::Render(PictureFor(path, static_cast<int>(wanted.cx)), wanted);
}

void DrawResource(HDC dc, const std::string& name, const RECT& area) {
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    const int pixels = std::min(width, height);
    if (HICON icon = ResourceIcon(name, pixels); icon != nullptr) {
        ::DrawIconEx(dc, area.left + (width - pixels) / 2, area.top + (height - pixels) / 2, icon,
                     pixels, pixels, 0, nullptr, DI_NORMAL);
    }
}

}  // namespace forms::win32::images
