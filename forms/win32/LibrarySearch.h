#pragma once

namespace forms::win32 {

// After this call, libraries that this process loads by name come from the system's folder only,
// never from the program's folder, the current folder or the path. (Some older systems can exclude
// only the current folder.) Call it before anything else. It does not affect libraries that are
// loaded by their full path.
void RestrictLibrarySearch();

}  // namespace forms::win32
