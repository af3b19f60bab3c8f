#include "tests/windows/Picture.h"

#include <algorithm>

namespace driver {

Picture::Picture(const Window& window) {
    const RECT place = window.Place();
    width = place.right - place.left;
    height = place.bottom - place.top;
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = width;
    format.bmiHeader.biHeight = -height;
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    HDC screen = ::GetDC(nullptr);
    HDC memory = ::CreateCompatibleDC(screen);
    void* bits = nullptr;
    HBITMAP bitmap = ::CreateDIBSection(screen, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ before = ::SelectObject(memory, bitmap);
    ::BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
    ::GdiFlush();
    const auto* values = static_cast<const DWORD*>(bits);
    for (int i = 0; i < width * height; ++i) {
        const DWORD value = values[i];
        pixels.push_back(RGB((value >> 16) & 0xFF, (value >> 8) & 0xFF, value & 0xFF));
    }
    ::SelectObject(memory, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
    ::ReleaseDC(nullptr, screen);
}

COLORREF Picture::At(int x, int y) const {
    return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x));
}

double Picture::Share(COLORREF color) const {
    return static_cast<double>(std::count(pixels.begin(), pixels.end(), color)) /
           static_cast<double>(pixels.size());
}

}  // namespace driver
