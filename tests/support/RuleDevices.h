#pragma once

#include "app/StandardCode.h"
#include "base/RuntimeError.h"
#include "forms/Devices.h"
#include "forms/headless/HeadlessDevices.h"
#include "forms/headless/HeadlessLocale.h"
#include "forms/headless/HeadlessSettings.h"
#include "forms/headless/MemoryFiles.h"
#include "tests/support/ErrorOf.h"

namespace testing_support {

// Devices for tests of rules and stores that need no windows: fresh devices and fresh shared
// values, with the program in C:\Jotwright.
class RuleDevices {
  public:
    RuleDevices() {
        files.PutFolder(system.folder);
        forms::Devices devices;
        devices.files = &files;
        devices.locale = &locale;
        devices.settings = &settings;
        devices.system = &system;
        forms::Machine() = devices;
        StandardCode::Reset();
    }
    ~RuleDevices() {
        forms::Machine() = forms::Devices{};
        StandardCode::Reset();
    }
    RuleDevices(const RuleDevices&) = delete;
    RuleDevices& operator=(const RuleDevices&) = delete;

    forms::headless::MemoryFiles files;
    forms::headless::HeadlessLocale locale;
    forms::headless::HeadlessSettings settings;
    forms::headless::RecordedSystem system;
};

}  // namespace testing_support
