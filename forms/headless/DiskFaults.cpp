#include "forms/headless/DiskFaults.h"

namespace forms::headless {

void DiskFaults::FailAt(int step, base::ErrorNumber number) {
    Set(step, {.isKill = false, .error = number});
}

void DiskFaults::KillAt(int step, Moment moment) { Set(step, {.isKill = true, .moment = moment}); }

void DiskFaults::ClearFaults() { Set(0, {}); }

void DiskFaults::Restart() {
    ClearFaults();
    dead = false;
}

std::optional<DiskFaults::Fault> DiskFaults::NextStep() {
    return ++steps == faultStep ? std::optional(fault) : std::nullopt;
}

void DiskFaults::Die() {
    dead = true;
    throw Killed{};
}

void DiskFaults::Set(int step, const Fault& newFault) {
    steps = 0;
    faultStep = step;
    fault = newFault;
}

}  // namespace forms::headless
