#pragma once

#include "base/RuntimeError.h"

// Retries for a file that another program holds briefly, for example a virus scanner, a sync client
// or a backup.
namespace Patience {

// Pauses for some milliseconds. Returns false at once if the time is used up: 1.5 s in all for one
// action of the user, 200 ms in all for one round of ticks.
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
