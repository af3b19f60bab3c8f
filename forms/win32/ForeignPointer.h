#pragma once

#include <windows.h>

#include <optional>

namespace forms::win32 {

// The value at an address that came with a message. Empty if it cannot be read: another program can
// send the message with an invalid address. ReadProcessMemory then fails instead of crashing.
template <class T>
std::optional<T> ReadAt(LPARAM address) {
    T value{};
    SIZE_T count = 0;
    const BOOL isRead =
        ::ReadProcessMemory(::GetCurrentProcess(), reinterpret_cast<const void*>(address), &value,
                            sizeof value, &count);
    return isRead != FALSE && count == sizeof value ? std::optional(value) : std::nullopt;
}

}  // namespace forms::win32
