#include "forms/headless/DiskPath.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "forms/headless/HeadlessLocale.h"

namespace forms::headless {

namespace {

constexpr std::size_t longestName = 255;  // UTF-16 units
constexpr std::size_t longestPath = 259;

bool IsReservedName(std::string_view name) {
    const std::string base = UpperCase(base::Trim(name.substr(0, name.find('.'))));
    if (base.size() == 4 && (base.starts_with("COM") || base.starts_with("LPT"))) {
        return base[3] >= '1' && base[3] <= '9';
    }
    static constexpr std::array<std::string_view, 6> devices{"CON", "PRN",    "AUX",
                                                             "NUL", "CONIN$", "CONOUT$"};
    return std::find(devices.begin(), devices.end(), base) != devices.end();
}

bool IsValidName(std::string_view name) {
    const bool hasBadCharacter = std::any_of(name.begin(), name.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x20 ||
               std::string_view("*?\"<>|:").find(c) != std::string_view::npos;
    });
    const bool hasOnlyDots = name.find_first_not_of('.') == std::string_view::npos;
    return !hasOnlyDots && !hasBadCharacter && base::Utf16Length(name) <= longestName &&
           !IsReservedName(name);
}

}  // namespace

DiskPath::DiskPath(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    while (path.ends_with('\\')) {
        path.pop_back();
    }
    if (path.size() < 2 || path[1] != ':' || (path.size() > 2 && path[2] != '\\')) {
        throw base::RuntimeError(base::ErrorNumber::BadFileName);
    }
    key = UpperCase(path.substr(0, 2));
    for (std::size_t start = 3; start <= path.size();) {
        const std::size_t end = std::min(path.find('\\', start), path.size());
        name = path.substr(start, end - start);
        while (end == path.size() && (name.ends_with('.') || name.ends_with(' '))) {
            name.pop_back();
        }
        if (!IsValidName(name)) {
            throw base::RuntimeError(base::ErrorNumber::BadFileName);
        }
        key += '\\' + UpperCase(name);
        start = end + 1;
    }
    if (base::Utf16Length(key) > longestPath) {
        throw base::RuntimeError(base::ErrorNumber::PathNotFound);
    }
}

}  // namespace forms::headless
