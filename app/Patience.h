#pragma once

#include "base/RuntimeError.h"

// Files that another program holds for a moment: a scanner, a sync client, a backup.
namespace Patience {

// Pauses for some milliseconds. False, at once, if the time for this action of the user (1.5 s in
// all) or this round of ticks (200 ms in all) is used up.
bool Wait();

// The result of the attempt, which is repeated while it raises RuntimeError 70 and Wait() allows.
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
