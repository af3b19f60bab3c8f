#pragma once

#include <windows.h>

#include <cstddef>

#include "tests/windows/Window.h"

namespace driver {

// Memory in the process of a window, for messages with pointers as parameters.
class RemoteMemory {
  public:
    RemoteMemory(const Window& window, std::size_t size);
    ~RemoteMemory();
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    void* Address() const { return address; }
    LPARAM Parameter() const { return reinterpret_cast<LPARAM>(address); }
    void Write(const void* from, std::size_t size) const;
    void Read(void* to, std::size_t size) const;

  private:
    HANDLE process = nullptr;
    void* address = nullptr;
};

// One value of a trivially copyable type.
template <typename T>
class Remote : public RemoteMemory {
  public:
    explicit Remote(const Window& window, const T& value = T{}) : RemoteMemory(window, sizeof(T)) {
        Write(&value, sizeof(T));
    }
    T Value() const {
        T value{};
        Read(&value, sizeof(T));
        return value;
    }
};

}  // namespace driver
