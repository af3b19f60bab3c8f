#pragma once

#include <optional>

#include "base/RuntimeError.h"

namespace forms::headless {

// Thrown when the program is killed. No handler of the program catches it.
struct Killed {};

// The faults of a disk in memory. A test sets one by the number of a primitive step, from 1. A new
// fault replaces the one before.
class DiskFaults {
  public:
    enum class Moment { Before, Middle, After };

    // The step with this number, counted from now on, fails. A failing write leaves half of its
    // bytes.
    void FailAt(int step, base::ErrorNumber number);
    // The program is killed at the step with this number, counted from now on: Killed is thrown. A
    // write that was not flushed is torn: its second half is zeros. An atomic step that is killed
    // in its middle has no effect. Until Restart(), the disk seems empty and changes are ignored.
    void KillAt(int step, Moment moment);
    void ClearFaults();
    void Restart();  // after a kill: faults are cleared, the disk works again
    // Steps since the beginning or since the last FailAt, KillAt, ClearFaults or Restart.
    int Steps() const { return steps; }

  protected:
    struct Fault {
        std::optional<base::ErrorNumber> error;  // none: the program is killed
        Moment moment = Moment::Before;          // of the kill
    };

    ~DiskFaults() = default;

    // The program was killed and has not been restarted.
    bool IsDead() const { return dead; }
    // Counts a step, and returns its fault if it has one.
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
