#pragma once

#include <string>
#include <utility>
#include <vector>

#include "forms/Devices.h"
#include "portable/UserRegistry.h"

namespace portable {

// Lends the options of a portable copy to the user's registry while the program runs. The program
// reads them from the registry as usual. End() restores the user's own options, so no option of the
// portable copy stays on the machine. After a kill at any step, the next loan of any portable copy
// finishes the work of the killed one.
class Loan {
  public:
    // folder is the program's folder, without a backslash at its end.
    Loan(UserRegistry& userRegistry, forms::FileSystem& fileSystem, std::string programFolder)
        : registry(userRegistry), files(fileSystem), folder(std::move(programFolder)) {}

    // Both raise RuntimeErrors if the registry refuses something.
    void Begin();
    void End();

    // Tells the user why options were not read or not kept. Empty if all went well.
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
    // The file holds something that was not read, and that cannot be copied.
    bool mustKeepFile = false;
};

}  // namespace portable
