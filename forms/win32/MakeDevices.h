#pragma once

#include "forms/ApplicationInfo.h"
#include "forms/Devices.h"

namespace forms::win32 {

// The machine's own devices. They are made by the first call, for its application, and live until
// the process ends.
Devices MakeDevices(const ApplicationInfo& application);

}  // namespace forms::win32
