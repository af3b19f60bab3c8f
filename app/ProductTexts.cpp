#include "app/ProductTexts.h"

namespace StandardCode {

// CMakeLists.txt has these values. The resources, the installer and the manifests take them from
// there as well.
const char* const version = JOTWRIGHT_VERSION;
const char* const webSite = JOTWRIGHT_WEB_SITE;
const char* const supportContact = JOTWRIGHT_SUPPORT;

}  // namespace StandardCode
