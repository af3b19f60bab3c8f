#pragma once

#include "forms/ApplicationInfo.h"

namespace StandardCode {

extern const forms::ApplicationInfo applicationInfo;

// The start-up routine: refuses a second copy, creates the notes folder and shows the splash
// screen, whose timer finishes the start-up. Runs once, inside Runtime::Run.
void Main();

}  // namespace StandardCode
