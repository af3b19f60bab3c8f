#include "app/ProductTexts.h"

#define JOTWRIGHT_TEXT_OF(value) #value
#define JOTWRIGHT_TEXT(value) JOTWRIGHT_TEXT_OF(value)

namespace StandardCode {

// The version is in the project() line of CMakeLists.txt, which also sets the version in the
// program's resources and in the names of its packages.
const char* const version = JOTWRIGHT_TEXT(JOTWRIGHT_VERSION);

}  // namespace StandardCode
