#include "app/StartupLink.h"

#include <string>

#include "base/RuntimeError.h"
#include "forms/Devices.h"
#include "forms/Services.h"

namespace StartupLink {

namespace {

// Both spellings name the same file. The search uses the first, the creation the second.
constexpr const char* linkToFind =
    "C:\\Documents and Settings\\All Users\\Start Menu\\Programs\\Startup\\Shortcut to "
    "Jotwright.lnk";
constexpr const char* linkToMake =
    "C:\\Documents and Settings\\All Users\\Start Menu\\Programs\\Startup\\Shortcut To "
    "Jotwright.lnk";
constexpr const char* shippedLink = "\\Shortcut To Jotwright.lnk";

forms::FileSystem& Files() { return *forms::Machine().files; }

// The shortcut in the user's own Startup folder. Empty if there is no such folder.
std::string OwnLink() {
    const std::string folder = forms::Machine().system->StartupFolder();
    return folder.empty() ? std::string() : folder + shippedLink;
}

void CopyTo(const std::string& link) {
    Files().Copy(forms::ApplicationPath(shippedLink), link);
    forms::Machine().shell->PointToThisProgram(link);
}

void Make(const std::string& ownLink) {
    try {
        CopyTo(linkToMake);
    } catch (const base::RuntimeError&) {
        // Only administrators may write to the folder of all users, and the folder may have another
        // path.
        if (ownLink.empty()) {
            throw;
        }
        CopyTo(ownLink);
    }
}

}  // namespace

void Update(bool startWithWindows) {
    const std::string ownLink = OwnLink();
    const bool isForAll = Files().FileExists(linkToFind);
    const bool isOwn = !ownLink.empty() && Files().FileExists(ownLink);
    if (startWithWindows) {
        if (isOwn) {
            // The program's folder may have been moved since.
            forms::Machine().shell->PointToThisProgram(ownLink);
        } else if (!isForAll) {
            Make(ownLink);
        }
        return;
    }
    if (isOwn) {
        Files().Delete(ownLink);
    }
    if (isForAll) {
        Files().Delete(linkToFind);
    }
}

}  // namespace StartupLink
