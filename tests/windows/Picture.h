#pragma once

#include <windows.h>

#include <cstddef>
#include <vector>

#include "tests/windows/Window.h"

namespace driver {

// What the screen shows of a window.
class Picture {
  public:
    explicit Picture(const Window& window);

    int Width() const { return width; }
    int Height() const { return height; }
    COLORREF At(int x, int y) const;
    // How much of the picture has exactly this colour, 0 to 1.
    double Share(COLORREF color) const;

  private:
    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;
};

}  // namespace driver
