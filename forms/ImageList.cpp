#include "forms/ImageList.h"

#include <algorithm>

#include "base/RuntimeError.h"

namespace forms {

int ImageList::IndexOf(std::string_view key) const {
    const auto found = Find(key);
    if (found == images.end()) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return static_cast<int>(found - images.begin());
}

std::string ImageList::ResourceOf(std::string_view key) const {
    const auto found = Find(key);
    return std::string(found == images.end() ? std::string_view() : found->resource);
}

std::vector<ImageList::Image>::const_iterator ImageList::Find(std::string_view key) const {
    return std::find_if(images.begin(), images.end(),
                        [key](const Image& image) { return image.key == key; });
}

}  // namespace forms
