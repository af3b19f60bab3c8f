#pragma once

// The shortcut that starts the program when a user signs in.
namespace StartupLink {

// Makes the shortcut if it is missing, or deletes it. The shortcut is made in the Startup folder of
// all users. If the system refuses, it is made in the user's own Startup folder. Raises
// RuntimeErrors.
void Update(bool startWithWindows);

}  // namespace StartupLink
