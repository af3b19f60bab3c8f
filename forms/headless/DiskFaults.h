#pragma once

#include <optional>

#include "base/RuntimeError.h"

namespace forms::headless {

// Thrown when the program is killed. No handler of the program catches it.
struct Killed {};

// The faults of a disk in memory. The disk counts its primitive steps from 1, and a fault occurs at
// the step with a given number. A new fault replaces the previous one.
class DiskFaults {
  public:
    enum class Moment { Before, Middle, After };

    // Makes the step with this number, counted from now on, fail. A write that fails stores half of
    // its bytes.
    void FailAt(int step, base::ErrorNumber number);
    // Kills the program at the step with this number, counted from now on, by throwing Killed. If a
    // file was written but not flushed, its second half becomes zeros. If an atomic step is killed
    // in the middle, it has no effect. Until Restart(), the disk seems empty, Read throws Killed
    // again, and changes are ignored.
    void KillAt(int step, Moment moment);
    void ClearFaults();
    void Restart();  // after a kill: clears the faults and makes the disk work again
    // The number of steps since the beginning or since the last FailAt, KillAt, ClearFaults or
    // Restart.
    int Steps() const { return steps; }

  protected:
    struct Fault {
        bool isKill = false;
        base::ErrorNumber error = base::ErrorNumber::DeviceIoError;  // if isKill is false
        Moment moment = Moment::Before;                              // of a kill
    };

    ~DiskFaults() = default;

    // Whether the program was killed and has not been restarted.
    bool IsDead() const { return dead; }
    // Counts a step. Returns the fault of this step, or nothing if it has none.
    std::optional<Fault> NextStep();
    [[noreturn]] void Die();

  private:
    void Set(int step, const Fault& newFault);

    int steps = 0;
    int faultStep = 0;
    Fault fault;
    bool dead = false;
};

}  // namespace forms::headless
