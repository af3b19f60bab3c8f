#pragma once

#include "forms/ApplicationInfo.h"

namespace StandardCode {

extern const forms::ApplicationInfo applicationInfo;

// The start-up routine: refuses a second copy, prepares the folder of the notes and shows the
// splash screen, whose timer does the rest. Runs once, inside Runtime::Run.
void Main();

}  // namespace StandardCode
