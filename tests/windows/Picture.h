#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "tests/windows/Window.h"

namespace driver {

// The pixels of a window on the screen.
class Picture {
  public:
    // margin is the number of pixels to leave out on each side.
    explicit Picture(const Window& window, int margin = 0);

    int Width() const { return width; }
    int Height() const { return height; }
    COLORREF At(int x, int y) const;
    // The share of pixels with exactly this colour, 0 to 1.
    double Share(COLORREF color) const;
    // Whether a square of this picture shows the picture in this file, drawn on a background of one
    // colour. The position may be off by one pixel.
    bool Shows(const std::string& path, POINT place, int size) const;

  private:
    Picture(const std::string& path, int size, COLORREF background);
    void Draw(const std::function<void(HDC)>& draw);

    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;
};

}  // namespace driver
