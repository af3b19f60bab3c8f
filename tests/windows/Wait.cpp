#include "tests/windows/Wait.h"

#include <windows.h>

namespace driver {

bool ComesTrue(const std::function<bool()>& condition, int seconds) {
    const ULONGLONG end = ::GetTickCount64() + static_cast<ULONGLONG>(seconds) * 1000;
    while (!condition()) {
        if (::GetTickCount64() >= end) {
            return false;
        }
        ::Sleep(15);
    }
    return true;
}

void WaitUntil(const std::string& what, const std::function<bool()>& condition, int seconds) {
    if (!ComesTrue(condition, seconds)) {
        throw Failure("waited in vain until " + what);
    }
}

}  // namespace driver
