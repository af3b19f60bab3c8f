#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace forms {

class Form;

// The pictures of a toolbar or a list, each with a unique key. An image list is a member of its
// form, like the controls, and is filled in Design only.
class ImageList {
  public:
    ImageList(Form* parent, const char* listName) : name(listName), form(*parent) {}
    ImageList(const ImageList&) = delete;
    ImageList& operator=(const ImageList&) = delete;

    // The texts must live as long as the list, as literals do.
    struct Image {
        std::string_view key;
        std::string_view resource;  // name of an icon that is compiled into the program
        bool operator==(const Image&) const = default;
    };

    const char* const name;
    Form& form;
    std::vector<Image> images;

    // The index of the picture, from 0. RuntimeError 9 if there is no such key.
    int IndexOf(std::string_view key) const;
    // The name of the icon; empty if there is no such key.
    std::string ResourceOf(std::string_view key) const;

  private:
    std::vector<Image>::const_iterator Find(std::string_view key) const;
};

}  // namespace forms
