#pragma once

#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

namespace forms::win32 {

// Icons are read once and kept until the process ends, so that a hundred windows share one icon. A
// file that cannot be read is not shown. The device that loads pictures has reported the error.
namespace images {

// The best frame of an icon file for this size. Null if there is none. Do not destroy it.
HICON FileIcon(const std::string& path, int pixels);

// Like FileIcon, for an icon file in the program's resources of type RCDATA. name is the name of
// the resource.
HICON ResourceIcon(const std::string& name, int pixels);

// The icons of these resources, for native controls that show several. All controls with the same
// icons share one list. Do not destroy it.
struct IconList {
    HIMAGELIST handle = nullptr;
    std::vector<int> places;  // of each name's icon; -1 if there is no such resource
};
const IconList& ResourceIcons(const std::vector<std::string>& names, int pixels);

// The program's own icon.
HICON ProgramIcon(int pixels);

// A place where a picture is shown. Keeps the scaled picture for the next drawing.
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
