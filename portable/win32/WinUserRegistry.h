#pragma once

#include <string>

#include "portable/UserRegistry.h"

namespace portable::win32 {

class WinUserRegistry : public UserRegistry {
  public:
    State ReadState() override;
    void WriteState(const State& state) override;
    Options ReadOptions() override;
    void WriteOptions(const Options& options) override;
    void SaveOwn() override;
    void RestoreOwn() override;
    void Forget() override;
};

}  // namespace portable::win32
