#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "tests/windows/Window.h"

namespace driver {

// What the screen shows of a window.
class Picture {
  public:
    // margin: how many pixels are left out on each side.
    explicit Picture(const Window& window, int margin = 0);

    int Width() const { return width; }
    int Height() const { return height; }
    COLORREF At(int x, int y) const;
    // How much of the picture has exactly this colour, 0 to 1.
    double Share(COLORREF color) const;
    // Whether a square of this picture is the picture in this file, drawn where nothing but one
    // colour was. A pixel aside is taken.
    bool Shows(const std::string& path, POINT place, int size) const;

  private:
    Picture(const std::string& path, int size, COLORREF background);
    void Draw(const std::function<void(HDC)>& draw);

    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;
};

}  // namespace driver
