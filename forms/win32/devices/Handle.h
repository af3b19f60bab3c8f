#pragma once

#include <windows.h>

#include <memory>

namespace forms::win32 {

struct CloseHandleOf {
    void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};

// The handle of a kernel object. Empty if the system returned no valid handle.
class Handle : public std::unique_ptr<void, CloseHandleOf> {
  public:
    explicit Handle(HANDLE handle)
        : std::unique_ptr<void, CloseHandleOf>(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
};

}  // namespace forms::win32
