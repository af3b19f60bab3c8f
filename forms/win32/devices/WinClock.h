#pragma once

#include "forms/Services.h"

namespace forms::win32 {

class WinClock : public Clock {
  public:
    base::DateTime Now() override;
    int MillisecondOfSecond() override;
    std::int64_t MonotonicMilliseconds() override;
};

}  // namespace forms::win32
