#include "app/TrayMessages.h"

#include "base/Text.h"

namespace TrayMessages {

namespace {

constexpr std::size_t tipLength = 64;

}  // namespace

std::string FixedTip(const std::string& caption) {
    std::string tip;
    std::size_t length = 0;
    for (std::size_t position = 0; position < caption.size();) {
        const std::size_t start = position;
        base::NextCharacter(caption, position);
        const std::string character = caption.substr(start, position - start);
        length += base::Utf16Length(character);
        if (length >= tipLength) {
            break;
        }
        tip += character;
    }
    tip.push_back('\0');
    tip.append(tipLength - base::Utf16Length(tip), ' ');
    return tip;
}

}  // namespace TrayMessages
