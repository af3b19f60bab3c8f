#include "tests/windows/RemoteMemory.h"

#include "tests/windows/Wait.h"

namespace driver {

RemoteMemory::RemoteMemory(const Window& window, std::size_t size) {
    DWORD id = 0;
    ::GetWindowThreadProcessId(window.handle, &id);
    process = ::OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    if (process != nullptr) {
        address = ::VirtualAllocEx(process, nullptr, size, MEM_COMMIT, PAGE_READWRITE);
    }
    if (address == nullptr) {
        ::CloseHandle(process);
        throw Failure("no memory in the program");
    }
}

RemoteMemory::~RemoteMemory() {
    ::VirtualFreeEx(process, address, 0, MEM_RELEASE);
    ::CloseHandle(process);
}

void RemoteMemory::Write(const void* from, std::size_t size) const {
    ::WriteProcessMemory(process, address, from, size, nullptr);
}

void RemoteMemory::Read(void* to, std::size_t size) const {
    ::ReadProcessMemory(process, address, to, size, nullptr);
}

}  // namespace driver
