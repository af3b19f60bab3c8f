#pragma once

#include <string>

#include "portable/OptionsFile.h"

namespace portable {

// The launcher's progress. It is stored in the registry, so that the next launcher can finish the
// work of a killed one.
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
    // The folder of the portable copy that has the options.
    std::string folder;
};

// The part of the user's registry that the launcher changes: the program's key, with the options,
// and a key of its own. Every function raises RuntimeErrors.
class UserRegistry {
  public:
    virtual ~UserRegistry() = default;

    virtual State ReadState() = 0;
    virtual void WriteState(const State& state) = 0;

    // The options in the program's key.
    virtual Options ReadOptions() = 0;
    // Makes the program's key hold these options and nothing else.
    virtual void WriteOptions(const Options& options) = 0;

    // Copies the program's key, or the fact that there is none, to the launcher's key.
    virtual void SaveOwn() = 0;
    // Copies it back.
    virtual void RestoreOwn() = 0;
    // Removes the launcher's key, its state first.
    virtual void Forget() = 0;
};

}  // namespace portable
