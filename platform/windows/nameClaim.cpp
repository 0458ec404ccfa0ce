#include "platform/nameClaim.h"

#include <windows.h>

#include <functional>
#include <map>
#include <utility>

#include "platform/windows/systemHandle.h"

namespace brasquelin {

/// A mutex goes with its last owner.
bool claimName(const std::string& name) {
    static std::map<std::string, SystemHandle> claimed;
    if (claimed.contains(name)) return true;
    const std::wstring text = L"Local\\Brasquelin-" + std::to_wstring(std::hash<std::string>()(name));
    SystemHandle mutex = ownHandle(CreateMutexW(nullptr, FALSE, text.c_str()));
    if (mutex && GetLastError() == ERROR_ALREADY_EXISTS) return false;
    claimed.emplace(name, std::move(mutex));
    return true;
}

}  // namespace brasquelin
