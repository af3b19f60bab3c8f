#pragma once

#include <string>
#include <utility>
#include <vector>

#include "forms/Devices.h"
#include "portable/UserRegistry.h"

namespace portable {

// Lends the options of a portable copy to the user's registry while the program runs. The program
// reads them from the registry as usual. End() restores the user's own options, so no option of the
// portable copy stays on the machine. If the launcher is killed at any step, the next loan, of
// whichever portable copy, finishes its work.
class Loan {
  public:
    // programFolder has no trailing backslash.
    Loan(UserRegistry& userRegistry, forms::FileSystem& fileSystem, std::string programFolder)
        : registry(userRegistry), files(fileSystem), folder(std::move(programFolder)) {}

    // Both raise RuntimeErrors if the registry cannot be read or changed.
    void Begin();
    void End();

    // Messages for the user about options that could not be read or kept. The caller shows them.
    std::vector<std::string> messages;

    static std::string PathIn(const std::string& programFolder);

  private:
    void FinishOf(const State& killed);
    Options Load();
    void SetAside(const std::string& path);
    void Store(const std::string& programFolder);
    void Write(const std::string& path, const std::string& bytes);

    UserRegistry& registry;
    forms::FileSystem& files;
    std::string folder;
    // The file must not be overwritten: it holds options that could not be read, and it has not
    // been copied.
    bool mustKeepFile = false;
};

}  // namespace portable
