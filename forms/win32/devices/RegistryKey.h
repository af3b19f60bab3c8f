#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

#include "base/RuntimeError.h"

namespace forms::win32::registry {

struct CloseKey {
    void operator()(HKEY key) const { ::RegCloseKey(key); }
};
// An open key. The destructor closes it.
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey>;

// RuntimeError 5 if a call of the registry failed.
inline void Check(LSTATUS status) {
    if (status != ERROR_SUCCESS) {
        throw base::RuntimeError(base::ErrorNumber::InvalidProcedureCall);
    }
}

}  // namespace forms::win32::registry
