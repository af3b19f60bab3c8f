#pragma once

#include <optional>

#include "forms/Devices.h"
#include "forms/win32/devices/Handle.h"

namespace forms::win32 {

class WinSystem : public System {
  public:
    // The name of the mutex by which copies of the program in the user's session know each other.
    explicit WinSystem(std::wstring mutexName) : name(std::move(mutexName)) {}

    std::string ApplicationFolder() override;
    // Holds until this object goes. Later calls repeat the first answer.
    bool PreviousInstance() override;
    std::uint32_t Version() override;
    std::string InstanceId() override;
    void Pause(int milliseconds) override;

  private:
    std::string folder;      // empty until it is first asked for
    std::string instanceId;  // empty until it is first asked for
    std::wstring name;
    std::optional<bool> previous;
    Handle mutex{nullptr};
};

}  // namespace forms::win32
