#include "forms/win32/Fonts.h"

#include <cwchar>
#include <map>
#include <tuple>

#include "forms/win32/Utf.h"

namespace forms::win32::fonts {

namespace {

using Key = std::tuple<std::string, int, bool, int, int>;

std::map<Key, HFONT>& Cache() {
    static std::map<Key, HFONT> cache;
    return cache;
}

std::map<int, HFONT>& TipCache() {
    static std::map<int, HFONT> cache;
    return cache;
}

}  // namespace

HFONT Get(const std::string& name, int points, bool bold, const Scale& scale) {
    HFONT& font = Cache()[Key(name, points, bold, scale.dpi, scale.text)];
    if (font == nullptr) {
        LOGFONTW description = MessageFont(scale.dpi);
        if (const int chosen = TextPercent(); points == 0 && scale.text < chosen) {
            description.lfHeight = ::MulDiv(description.lfHeight, scale.text, chosen);
        } else if (points > 0) {
            description.lfHeight = -scale.PixelsOfPoints(points);
            description.lfWidth = 0;
        }
        if (bold) {
            description.lfWeight = FW_BOLD;
        }
        if (!name.empty()) {
            std::wcsncpy(description.lfFaceName, Wide(name).c_str(), LF_FACESIZE - 1);
            description.lfCharSet = DEFAULT_CHARSET;
        }
        font = ::CreateFontIndirectW(&description);
    }
    return font;
}

HFONT ForTips(int dpi) {
    HFONT& font = TipCache()[dpi];
    if (font == nullptr) {
        const LOGFONTW description = TipFont(dpi);
        font = ::CreateFontIndirectW(&description);
    }
    return font;
}

std::vector<HFONT> Forget() {
    std::vector<HFONT> old;
    for (const auto& [key, font] : Cache()) {
        old.push_back(font);
    }
    for (const auto& [dpi, font] : TipCache()) {
        old.push_back(font);
    }
    Cache().clear();
    TipCache().clear();
    return old;
}

SIZE Measure(const std::wstring& text, HFONT font) {
    HDC screen = ::GetDC(nullptr);
    const HGDIOBJ before = ::SelectObject(screen, font);
    RECT box{};
    // An empty text is as high as a line.
    const std::wstring measured = text.empty() ? L" " : text;
    ::DrawTextW(screen, measured.c_str(), static_cast<int>(measured.size()), &box,
                DT_CALCRECT | DT_NOPREFIX | DT_EXPANDTABS);
    ::SelectObject(screen, before);
    ::ReleaseDC(nullptr, screen);
    return SIZE{text.empty() ? 0 : box.right, box.bottom};
}

}  // namespace forms::win32::fonts
