#include "tests/windows/long/Load.h"

#include <algorithm>
#include <cstdlib>

namespace driver {

Load::Load() {
    const auto processors = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    const int busy = Number("JOTWRIGHT_LOAD", processors);
    for (int i = 0; i < busy; ++i) {
        threads.emplace_back([this] {
            volatile unsigned number = 1;
            while (!ends) {
                number = number * 1'664'525U + 1'013'904'223U;
            }
        });
    }
}

Load::~Load() {
    ends = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
}

int Number(const char* variable, int otherwise) {
    const char* given = std::getenv(variable);
    return given != nullptr && *given != '\0' ? std::atoi(given) : otherwise;
}

}  // namespace driver
