#pragma once

#include <windows.h>

#include <memory>

namespace forms::win32 {

struct CloseHandleOf {
    void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};

// A kernel object's handle; empty where the system gave none.
class Handle : public std::unique_ptr<void, CloseHandleOf> {
  public:
    explicit Handle(HANDLE handle)
        : std::unique_ptr<void, CloseHandleOf>(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
};

}  // namespace forms::win32
