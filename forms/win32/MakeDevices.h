#pragma once

#include "forms/ApplicationInfo.h"
#include "forms/Devices.h"

namespace forms::win32 {

// The devices of this machine. The first call creates them for its application, and later calls
// return the same ones. They live until the process ends.
Devices MakeDevices(const ApplicationInfo& application);

}  // namespace forms::win32
