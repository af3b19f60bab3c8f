#pragma once

#include <optional>

#include "forms/Devices.h"
#include "forms/win32/devices/Handle.h"

namespace forms::win32 {

class WinSystem : public System {
  public:
    // Copies of the program in the same session of the user detect each other by this mutex.
    explicit WinSystem(std::wstring mutexName) : name(std::move(mutexName)) {}

    std::string ApplicationFolder() override;
    // Makes the folder if it is missing.
    std::string StartupFolder() override;
    // The mutex is held until this object is destroyed. Later calls return the first result.
    bool PreviousInstance() override;
    std::uint32_t Version() override;
    std::string InstanceId() override;
    void Pause(int milliseconds) override;

  private:
    std::string folder;      // empty until its first use
    std::string instanceId;  // empty until its first use
    std::wstring name;
    std::optional<bool> previous;
    Handle mutex{nullptr};
};

}  // namespace forms::win32
