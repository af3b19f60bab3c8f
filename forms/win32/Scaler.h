#pragma once

#include <windows.h>

#include <memory>

namespace forms::win32 {

// Pixels of 32 bits, rows from the top without gaps, the colours multiplied with the alpha channel.
struct Pixels32 {
    void* pixels;
    SIZE size;
};

// Scales pictures. Its library stays loaded for as long as it lives.
class Scaler {
  public:
    Scaler();
    ~Scaler();
    Scaler(const Scaler&) = delete;
    Scaler& operator=(const Scaler&) = delete;

    // Fills the whole of the target; leaves it as it is where the system cannot.
    void Scale(const Pixels32& source, const Pixels32& target) const;

  private:
    struct Library;
    std::unique_ptr<Library> library;
};

}  // namespace forms::win32
