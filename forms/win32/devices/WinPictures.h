#pragma once

#include <cstdint>
#include <unordered_map>

#include "forms/Devices.h"

namespace forms::win32 {

// Sizes of pictures: gif, jpg, png and bmp at 15 twips to a pixel. An icon counts as 32 pixels
// square, whatever sizes its file contains. A size is remembered until the file changes.
class WinPictures : public Pictures {
  public:
    // pictureFiles is not owned.
    explicit WinPictures(FileSystem& pictureFiles) : files(pictureFiles) {}

    Picture Load(const std::string& path) override;

  private:
    struct Known {
        std::uint64_t size;
        std::uint64_t changed;
        Picture picture;
    };
    FileSystem& files;
    std::unordered_map<std::string, Known> known;  // by path
};

}  // namespace forms::win32
