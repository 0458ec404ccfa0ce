#include "platform/windows/debugPrivilege.h"

#include <windows.h>

#include "platform/windows/systemHandle.h"

namespace brasquelin {

bool enableDebugPrivilege() {
    HANDLE raw = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &raw) == 0) return false;
    const SystemHandle token = ownHandle(raw);
    TOKEN_PRIVILEGES privileges{};
    privileges.PrivilegeCount = 1;
    privileges.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
    if (LookupPrivilegeValueW(nullptr, L"SeDebugPrivilege", &privileges.Privileges[0].Luid) == 0) return false;
    if (AdjustTokenPrivileges(token.get(), FALSE, &privileges, 0, nullptr, nullptr) == 0) return false;
    return GetLastError() == ERROR_SUCCESS;
}

}  // namespace brasquelin
