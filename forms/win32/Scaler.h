#pragma once

#include <windows.h>

#include <memory>

namespace forms::win32 {

// Pixels of 32 bits with premultiplied alpha. The top row comes first, and there are no gaps
// between the rows.
struct Pixels32 {
    void* pixels;
    SIZE size;
};

// Scales pictures. Keeps its library loaded.
class Scaler {
  public:
    Scaler();
    ~Scaler();
    Scaler(const Scaler&) = delete;
    Scaler& operator=(const Scaler&) = delete;

    // Fills the whole target. Leaves it unchanged if the system cannot scale.
    void Scale(const Pixels32& source, const Pixels32& target) const;

  private:
    struct Library;
    std::unique_ptr<Library> library;
};

}  // namespace forms::win32
