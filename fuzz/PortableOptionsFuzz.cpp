#include <cstdint>
#include <cstdlib>
#include <string>

#include "portable/OptionsFile.h"

// Checks that any bytes give options that can be written and read again, and that a file that was
// written is not damaged.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string folder = "E:\\Jotwright";
    const std::string bytes(data, data + size);
    const portable::ParsedOptions first = portable::ParseOptions(bytes, folder);
    const portable::ParsedOptions second =
        portable::ParseOptions(portable::FormatOptions(first.options, folder), folder);
    if (second.isDamaged || second.options != first.options) {
        std::abort();
    }
    return 0;
}
