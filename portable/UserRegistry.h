#pragma once

#include <string>

#include "portable/OptionsFile.h"

namespace portable {

// The launcher's progress. The registry holds it, so that the next launcher can finish the work of
// a killed one.
enum class Stage {
    // The program's key holds the user's own options, those of an installed copy.
    Own,
    // The user's own options are safe in the launcher's key. The program's key may hold any
    // options.
    Saved,
    // As Saved, and the program's key holds the options of the portable copy.
    Lent,
};

struct State {
    Stage stage = Stage::Own;
    // The folder of the portable copy whose launcher wrote the state.
    std::string folder;
};

// The part of the user's registry that the launcher changes: the program's key, with the options,
// and the launcher's key. Every function may raise RuntimeErrors.
class UserRegistry {
  public:
    virtual ~UserRegistry() = default;

    virtual State ReadState() = 0;
    virtual void WriteState(const State& state) = 0;

    // The options in the program's key.
    virtual Options ReadOptions() = 0;
    // Makes the program's key hold these options and nothing else.
    virtual void WriteOptions(const Options& options) = 0;

    // Saves a copy of the program's key in the launcher's key. If the program has no key, only
    // removes an earlier copy.
    virtual void SaveOwn() = 0;
    // Makes the program's key equal to the copy. If there is no copy, removes the program's key.
    virtual void RestoreOwn() = 0;
    // Sets the state to Own, then removes the launcher's key.
    virtual void Forget() = 0;
};

}  // namespace portable
