#pragma once

namespace forms::win32 {

// From now on the system looks for the libraries that this process loads by name in its own folder
// only: one that somebody has put beside the program, into the current folder or on the path is not
// loaded. To be called before anything else. Libraries loaded by their full path are not concerned.
void RestrictLibrarySearch();

}  // namespace forms::win32
