#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace forms::win32 {

// Decodes gif, jpg, png and bmp files. The system's libraries for this are large and rarely needed.
// So they are loaded with the first picture, and released about two seconds after the last one.
namespace decoder {

// The size in pixels. Empty if the bytes are not a picture, or if a side is longer than 16384
// pixels.
std::optional<SIZE> SizeOf(const std::string& bytes);

// The picture scaled to this size, with 32 bits a pixel and premultiplied alpha. The caller deletes
// the bitmap. Null on failure.
HBITMAP Render(const std::string& bytes, SIZE size);

// Releases the libraries if they have not been used lately. The stage's timer calls this function
// periodically.
void ReleaseIfUnused();

}  // namespace decoder
}  // namespace forms::win32
