#include "platform/windows/systemHandle.h"

#include <windows.h>

namespace brasquelin {

void CloseSystemHandle::operator()(void* handle) const {
    CloseHandle(handle);
}

SystemHandle ownHandle(void* handle) {
    return SystemHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

}  // namespace brasquelin
