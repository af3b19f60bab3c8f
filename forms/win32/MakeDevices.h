#pragma once

#include "forms/Devices.h"

namespace forms::win32 {

// The machine's own devices. They are made by the first call and live until the process ends.
Devices MakeDevices();

}  // namespace forms::win32
