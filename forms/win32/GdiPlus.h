#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace forms::win32 {

// Decodes gif, jpg, png and bmp files. The library that does it is large and seldom needed: it is
// loaded with the first picture and let go when none was asked for in the last seconds.
namespace gdiplus {

// Pixels; nothing where the bytes are no picture.
std::optional<SIZE> SizeOf(const std::string& bytes);

// The picture scaled to this size: 32 bits a pixel, with an alpha channel that the colours are
// multiplied with already. The caller's to delete; null where the bytes are no picture.
HBITMAP Render(const std::string& bytes, SIZE size);

// To be called now and then.
void ReleaseIfUnused();

}  // namespace gdiplus
}  // namespace forms::win32
