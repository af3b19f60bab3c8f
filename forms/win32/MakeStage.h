#pragma once

#include <memory>

#include "forms/ApplicationInfo.h"
#include "forms/Stage.h"

namespace forms::win32 {

// The stage that a person sees. One exists at a time, on the thread that made it; it must outlive
// the runtime.
std::unique_ptr<Stage> MakeStage(const ApplicationInfo& application);

}  // namespace forms::win32
