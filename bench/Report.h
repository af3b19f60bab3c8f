#pragma once

#include <cstdio>

namespace bench {

// Writes the line of one measured action.
inline void Report(const char* name, double milliseconds) {
    std::printf("%s %.2f\n", name, milliseconds);
    std::fflush(stdout);
}

}  // namespace bench
