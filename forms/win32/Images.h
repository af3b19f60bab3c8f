#pragma once

#include <windows.h>

#include <string>

namespace forms::win32 {

// Icons are read once and kept until the process ends, so that a hundred windows share one. What
// cannot be read is simply not shown: the models have been told by the device that
// loads pictures.
namespace images {

// From an icon file, the frame that suits best; null where there is none. Not to be destroyed.
HICON FileIcon(const std::string& path, int pixels);

// From the program's resources of type RCDATA that hold icon files: name is the resource's name.
HICON ResourceIcon(const std::string& name, int pixels);

// The program's own icon.
HICON ProgramIcon(int pixels);

// One place where a picture is shown. Holds the picture as it appears there, for as long as the
// place exists.
class View {
  public:
    View() = default;
    ~View();
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    // Draws a gif, jpg, png, bmp or ico file scaled to the area.
    void Draw(HDC dc, const std::string& path, const RECT& area);

  private:
    void Render(const std::string& path, SIZE wanted);

    HBITMAP bitmap = nullptr;
    std::string shownPath;
    SIZE size{};
};

void DrawResource(HDC dc, const std::string& name, const RECT& area);

}  // namespace images
}  // namespace forms::win32
