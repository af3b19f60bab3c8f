#pragma once

#include "base/RuntimeError.h"

// Retries for a file that another program holds briefly, for example a virus scanner, a sync client
// or a backup.
namespace Patience {

// Pauses for some milliseconds and returns true. If the time for retries is used up, returns false
// without a pause. The total time is 1.5 s for one action of the user, and 200 ms for one round of
// ticks.
bool Wait();

// Returns the result of the attempt. Repeats the attempt while it raises RuntimeError 70 and Wait()
// returns true.
template <class Attempt>
auto Try(Attempt attempt) {
    for (;;) {
        try {
            return attempt();
        } catch (const base::RuntimeError& error) {
            if (!(error == base::ErrorNumber::PermissionDenied) || !Wait()) {
                throw;
            }
        }
    }
}

}  // namespace Patience
