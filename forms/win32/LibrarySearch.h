#pragma once

namespace forms::win32 {

// From now on, libraries that this process loads by name come from the system's folder only, never
// from the program's folder, the current folder or the path. Must be called before anything else.
// Does not affect libraries that are loaded by their full path.
void RestrictLibrarySearch();

}  // namespace forms::win32
