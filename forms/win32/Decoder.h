#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace forms::win32 {

// Decodes gif, jpg, png and bmp files. The system's libraries for this are large and seldom needed:
// they are loaded with the first picture and released some seconds after the last one.
namespace decoder {

// Pixels; empty if the bytes are not a picture.
std::optional<SIZE> SizeOf(const std::string& bytes);

// The picture scaled to this size: 32 bits a pixel, with premultiplied alpha. The caller deletes
// it. Null if the bytes are not a picture.
HBITMAP Render(const std::string& bytes, SIZE size);

// Call periodically; the stage's timer does.
void ReleaseIfUnused();

}  // namespace decoder
}  // namespace forms::win32
