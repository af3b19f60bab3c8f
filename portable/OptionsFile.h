#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The file in which a portable copy keeps its options, one in a line:
//
//   Options\DefaultColor=3
//   Config\Alarm=%FOLDER%\Bell alarm.wav
//
// %FOLDER% is the program's folder, so that the options are right in another folder or on another
// drive. "%" and control characters are written as "%" and two hexadecimal digits. Lines that begin
// with ";" are comments. The file is UTF-8.
namespace portable {

// Section and key to value.
using Options = std::map<std::pair<std::string, std::string>, std::string>;

struct ParsedOptions {
    Options options;
    // Some bytes have no meaning. The options hold everything else.
    bool isDamaged = false;
};

// All options that the program has.
const std::vector<std::pair<std::string, std::string>>& OptionNames();

// folder is the program's folder, without a backslash at its end.
ParsedOptions ParseOptions(std::string_view bytes, const std::string& folder);
std::string FormatOptions(const Options& options, const std::string& folder);

}  // namespace portable
