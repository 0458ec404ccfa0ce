#include "support/resources.h"

#include <windows.h>

#include <malloc.h>

#include "platform/windows/systemHandle.h"

namespace brasquelin {

const int manyTimes = 500;
const int manyProcesses = 20;

/// Where the system does not count them, the next one takes the first number that is free.
std::size_t openHandles() {
    DWORD count = 0;
    if (GetProcessHandleCount(GetCurrentProcess(), &count) != 0 && count > 0) return count;
    const SystemHandle next = ownHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    return reinterpret_cast<std::size_t>(next.get());
}

std::size_t allocatedBytes() {
    std::size_t bytes = 0;
    _HEAPINFO entry{};
    while (_heapwalk(&entry) == _HEAPOK) {
        if (entry._useflag == _USEDENTRY) bytes += entry._size;
    }
    return bytes;
}

}  // namespace brasquelin
