#include <windows.h>

#include <cstdlib>
#include <string>

#include "platform/systemLock.h"
#include "platform/windows/systemHandle.h"
#include "platform/windows/wideText.h"

namespace brasquelin {

namespace {

SystemHandle lockedDirectory;

/// The same for every spelling of the directory; empty when it cannot be asked.
std::wstring mutexNameOf(const std::string& directory) {
    const SystemHandle opened =
        ownHandle(CreateFileW(toWide(directory).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                              nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION information{};
    if (!opened || GetFileInformationByHandle(opened.get(), &information) == 0) return {};
    std::wstring name = L"Global\\Brasquelin";
    for (const DWORD part : {information.dwVolumeSerialNumber, information.nFileIndexHigh, information.nFileIndexLow}) {
        name += L'-' + std::to_wstring(part);
    }
    return name;
}

}  // namespace

/// A mutex goes with its last owner, so nothing of the lock lies about.
bool tryLockDirectory(const std::string& directory) {
    const std::wstring name = mutexNameOf(directory);
    if (name.empty()) return true;
    SystemHandle mutex = ownHandle(CreateMutexW(nullptr, FALSE, name.c_str()));
    if (!mutex) return true;
    if (WaitForSingleObject(mutex.get(), 0) == WAIT_TIMEOUT) return false;
    lockedDirectory = std::move(mutex);
    return true;
}

void unlockDirectory() {
    if (lockedDirectory) ReleaseMutex(lockedDirectory.get());
    lockedDirectory.reset();
}

void setEnvironmentOfChildren(const char* name, const std::string& value) {
    _putenv_s(name, value.c_str());
}

}  // namespace brasquelin
