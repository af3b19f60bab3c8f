#include "app/ProductTexts.h"

namespace StandardCode {

// CMakeLists.txt defines these values also for the resources, the installer and the manifests.
const char* const version = JOTWRIGHT_VERSION;
const char* const webSite = JOTWRIGHT_WEB_SITE;
const char* const supportContact = JOTWRIGHT_SUPPORT;

}  // namespace StandardCode
