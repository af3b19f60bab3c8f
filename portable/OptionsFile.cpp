#include "portable/OptionsFile.h"

#include <algorithm>
#include <optional>

#include "app/Settings.h"
#include "base/Text.h"

namespace portable {

namespace {

constexpr std::string_view header =
    "; The options of this portable copy. JotwrightPortable.exe reads and writes this file.\r\n";
constexpr std::string_view folderMark = "%FOLDER%";
constexpr std::string_view digits = "0123456789ABCDEF";

std::string Escaped(std::string_view value) {
    std::string escaped;
    for (const char c : value) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte != 0x7f && c != '%') {
            escaped += c;
        } else {
            escaped += {'%', digits[byte >> 4U], digits[byte & 15U]};
        }
    }
    return escaped;
}

std::optional<std::string> Unescaped(std::string_view escaped) {
    std::string value;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        if (escaped[i] != '%') {
            value += escaped[i];
            continue;
        }
        if (i + 2 >= escaped.size()) {
            return std::nullopt;
        }
        const std::size_t high = digits.find(escaped[i + 1]);
        const std::size_t low = digits.find(escaped[i + 2]);
        if (high == std::string_view::npos || low == std::string_view::npos) {
            return std::nullopt;
        }
        value += static_cast<char>(high * 16 + low);
        i += 2;
    }
    // The registry ends a text at a zero character.
    if (value.find('\0') != std::string::npos || base::ToValidUtf8(value) != value) {
        return std::nullopt;
    }
    return value;
}

bool IsInFolder(const std::string& path, const std::string& folder) {
    return path.starts_with(folder) && path.size() > folder.size() && path[folder.size()] == '\\';
}

// Adds the option in one line. Returns false if the line is not an option, or if options has it
// already.
bool ParseLine(std::string_view line, const std::string& folder, Options& options) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
        return false;
    }
    std::string_view escaped = line.substr(equals + 1);
    const bool isInFolder = escaped.starts_with(folderMark);
    if (isInFolder) {
        escaped.remove_prefix(folderMark.size());
    }
    const std::optional<std::string> value = Unescaped(escaped);
    if (!value) {
        return false;
    }
    for (const auto& name : OptionNames()) {
        if (line.substr(0, equals) == name.first + '\\' + name.second) {
            return options.emplace(name, isInFolder ? folder + *value : *value).second;
        }
    }
    return false;
}

}  // namespace

const std::vector<std::pair<std::string, std::string>>& OptionNames() {
    static const auto nameOf = [](const auto& setting) {
        return std::pair<std::string, std::string>(setting.section, setting.key);
    };
    static const std::vector<std::pair<std::string, std::string>> names{
        nameOf(Settings::defaultColor), nameOf(Settings::defaultFontSize),
        nameOf(Settings::windowOnTop),  nameOf(Settings::startCookoo),
        nameOf(Settings::showDateTime), nameOf(Settings::noteLoops),
        nameOf(Settings::isService),    nameOf(Settings::alarm),
        nameOf(Settings::viewTips)};
    return names;
}

ParsedOptions ParseOptions(std::string_view bytes, const std::string& folder) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(byteOrderMark)) {
        bytes.remove_prefix(byteOrderMark.size());
    }
    ParsedOptions parsed;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        if (!line.empty() && !line.starts_with(';') && !ParseLine(line, folder, parsed.options)) {
            parsed.isDamaged = true;
        }
    }
    return parsed;
}

std::string FormatOptions(const Options& options, const std::string& folder) {
    std::string bytes(header);
    for (const auto& [name, value] : options) {
        const bool isInFolder = IsInFolder(value, folder);
        bytes += name.first + '\\' + name.second + '=';
        bytes += isInFolder ? std::string(folderMark) + Escaped(value.substr(folder.size()))
                            : Escaped(value);
        bytes += base::lineBreak;
    }
    return bytes;
}

}  // namespace portable
