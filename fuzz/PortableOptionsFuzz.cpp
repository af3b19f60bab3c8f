#include <cstdint>
#include <cstdlib>
#include <string>

#include "portable/OptionsFile.h"

// Checks that any bytes give options that are the same after writing and reading, and that the
// written bytes do not count as damaged.
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
