#include "app/ProductTexts.h"

namespace StandardCode {

// CMakeLists.txt defines these values. The resources, the installer and the manifests use them,
// too.
const char* const version = JOTWRIGHT_VERSION;
const char* const webSite = JOTWRIGHT_WEB_SITE;
const char* const supportContact = JOTWRIGHT_SUPPORT;

}  // namespace StandardCode
