#include "tests/windows/Picture.h"

#include <objidl.h>
#include <gdiplus.h>

#include <algorithm>

#include "forms/win32/Utf.h"
#include "tests/windows/Needs.h"
#include "tests/windows/Wait.h"

namespace driver {

namespace {

void StartGdiPlus() {
    static const bool started = [] {
        ULONG_PTR token = 0;
        const Gdiplus::GdiplusStartupInput input;
        return Gdiplus::GdiplusStartup(&token, &input, nullptr) == Gdiplus::Ok;
    }();
    if (!started) {
        throw Failure("no picture can be read");
    }
}

}  // namespace

Picture::Picture(const Window& window, int margin) {
    NeedDesktop();
    RECT place = window.Place();
    ::InflateRect(&place, -margin, -margin);
    width = place.right - place.left;
    height = place.bottom - place.top;
    HDC screen = ::GetDC(nullptr);
    Draw(
        [&](HDC to) { ::BitBlt(to, 0, 0, width, height, screen, place.left, place.top, SRCCOPY); });
    ::ReleaseDC(nullptr, screen);
}

Picture::Picture(const std::string& path, int size, COLORREF background)
    : width(size), height(size) {
    StartGdiPlus();
    Draw([&](HDC to) {
        const RECT area{0, 0, size, size};
        HBRUSH brush = ::CreateSolidBrush(background);
        ::FillRect(to, &area, brush);
        ::DeleteObject(brush);
        Gdiplus::Bitmap picture(forms::win32::Wide(path).c_str());
        Gdiplus::Graphics(to).DrawImage(&picture, 0, 0, size, size);
    });
}

void Picture::Draw(const std::function<void(HDC)>& draw) {
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = width;
    format.bmiHeader.biHeight = -height;
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    HDC memory = ::CreateCompatibleDC(nullptr);
    void* bits = nullptr;
    HBITMAP bitmap = ::CreateDIBSection(memory, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ before = ::SelectObject(memory, bitmap);
    draw(memory);
    ::GdiFlush();
    const auto* values = static_cast<const DWORD*>(bits);
    for (int i = 0; i < width * height; ++i) {
        const DWORD value = values[i];
        pixels.push_back(RGB((value >> 16) & 0xFF, (value >> 8) & 0xFF, value & 0xFF));
    }
    ::SelectObject(memory, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
}

COLORREF Picture::At(int x, int y) const {
    return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x));
}

double Picture::Share(COLORREF color) const {
    return static_cast<double>(std::count(pixels.begin(), pixels.end(), color)) /
           static_cast<double>(pixels.size());
}

bool Picture::Shows(const std::string& path, POINT place, int size) const {
    const Picture expected(path, size, At(place.x - 3, place.y - 3));
    for (int aside = 0; aside < 9; ++aside) {
        const int left = place.x + aside % 3 - 1;
        const int top = place.y + aside / 3 - 1;
        int different = 0;
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                different += At(left + x, top + y) != expected.At(x, y) ? 1 : 0;
            }
        }
        if (different == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace driver
