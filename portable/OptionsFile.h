#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The file in which a portable copy keeps its options, one per line:
//
//   Options\DefaultColor=3
//   Config\Alarm=%FOLDER%\Bell alarm.wav
//
// %FOLDER% is the program's folder, so that the options stay right if the folder is moved to
// another place or drive. "%" and control characters are written as "%" and two hexadecimal digits.
// Lines that begin with ";" are comments. The file is UTF-8.
namespace portable {

// Maps section and key to the value.
using Options = std::map<std::pair<std::string, std::string>, std::string>;

struct ParsedOptions {
    Options options;
    // Some lines are not options, or repeat an option. options holds all others.
    bool isDamaged = false;
};

// The section and the key of every option of the program.
const std::vector<std::pair<std::string, std::string>>& OptionNames();

// folder is the program's folder, without a trailing backslash.
ParsedOptions ParseOptions(std::string_view bytes, const std::string& folder);
std::string FormatOptions(const Options& options, const std::string& folder);

}  // namespace portable
