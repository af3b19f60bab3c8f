#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace forms::win32 {

// Decodes gif, jpg, png and bmp files. The system's libraries that do it are large and seldom
// needed: they are loaded with the first picture and let go when none was asked for in the last
// seconds.
namespace decoder {

// Pixels; nothing where the bytes are no picture.
std::optional<SIZE> SizeOf(const std::string& bytes);

// The picture scaled to this size: 32 bits a pixel, with an alpha channel that the colours are
// multiplied with already. The caller's to delete; null where the bytes are no picture.
HBITMAP Render(const std::string& bytes, SIZE size);

// To be called now and then.
void ReleaseIfUnused();

}  // namespace decoder
}  // namespace forms::win32
