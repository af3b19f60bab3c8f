#pragma once

#include <memory>

#include "forms/ApplicationInfo.h"
#include "forms/Stage.h"

namespace forms::win32 {

// Creates the stage for a real user. Only one may exist at a time. Use it only on the thread that
// created it. It must outlive the runtime.
std::unique_ptr<Stage> MakeStage(const ApplicationInfo& application);

}  // namespace forms::win32
