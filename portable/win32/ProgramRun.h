#pragma once

#include <functional>
#include <string>

#include "forms/win32/devices/Handle.h"

namespace portable::win32 {

// A running copy of the program.
class ProgramRun {
  public:
    // Starts Jotwright.exe in this folder.
    explicit ProgramRun(const std::wstring& folder);

    bool HasStarted() const { return process != nullptr; }
    // Waits for the end of the program, if it has started, then calls atEnd. At the end of the
    // user's session, waits at most four seconds, and calls atEnd while handling the system's
    // message, because the system may kill this process as soon as the message is handled.
    void WaitForEnd(const std::function<void()>& atEnd) const;

  private:
    forms::win32::Handle process;
};

}  // namespace portable::win32
