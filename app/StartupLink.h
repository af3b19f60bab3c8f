#pragma once

// The shortcut that starts the program when a user signs in.
namespace StartupLink {

// If startWithWindows is true, makes the shortcut unless it exists; otherwise deletes it. A new
// shortcut is in the Startup folder of all users or, if the system refuses that, in the user's own
// Startup folder. Raises RuntimeErrors.
void Update(bool startWithWindows);

}  // namespace StartupLink
