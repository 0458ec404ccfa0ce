#include <windows.h>

#include <map>
#include <stdexcept>

#include "platform/childProcess.h"
#include "platform/windows/debugPrivilege.h"
#include "platform/windows/programStart.h"
#include "platform/windows/systemError.h"
#include "platform/windows/systemHandle.h"
#include "platform/windows/wideText.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

constexpr DWORD queryAccess = 0x400;
constexpr DWORD terminateAccess = 1;
constexpr DWORD stillActive = 259;

class WindowsProcessTable : public ProcessTable {
  public:
    std::uint32_t start(std::string_view command, WindowStyle style) override;
    bool isRunning(std::uint32_t processId) override;
    bool terminate(std::uint32_t processId) override;
    std::uint32_t ownerOf(std::uintptr_t windowHandle) override;

  private:
    // While the handle is kept, the system does not give the id to another process.
    std::map<std::uint32_t, SystemHandle> known_;
};

STARTUPINFOW startUpInfo(WindowStyle style) {
    STARTUPINFOW info{};
    info.cb = sizeof info;
    info.dwFlags = STARTF_USESHOWWINDOW;
    info.wShowWindow = style == WindowStyle::hidden ? SW_HIDE : SW_SHOWNORMAL;
    return info;
}

std::uint32_t WindowsProcessTable::start(std::string_view command, WindowStyle style) {
    ProgramStart program = programStartOf(command);
    STARTUPINFOW info = startUpInfo(style);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(program.program.c_str(), program.commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       nullptr, &info, &process) == 0) {
        throw RunTimeError(startErrorOf(GetLastError()), fromWide(program.program));
    }
    CloseHandle(process.hThread);
    known_[process.dwProcessId] = ownHandle(process.hProcess);
    return process.dwProcessId;
}

bool WindowsProcessTable::isRunning(std::uint32_t processId) {
    const auto kept = known_.find(processId);
    if (kept == known_.end()) return false;
    DWORD exitCode = 0;
    const SystemHandle process = ownHandle(OpenProcess(queryAccess, FALSE, processId));
    const bool active = process && GetExitCodeProcess(process.get(), &exitCode) != 0 && exitCode == stillActive;
    // A program may end with this very number.
    if (active && WaitForSingleObject(kept->second.get(), 0) == WAIT_TIMEOUT) return true;
    known_.erase(kept);
    return false;
}

bool WindowsProcessTable::terminate(std::uint32_t processId) {
    if (!isRunning(processId)) return false;
    enableDebugPrivilege();
    const SystemHandle process = ownHandle(OpenProcess(terminateAccess, FALSE, processId));
    return process && TerminateProcess(process.get(), 0) != 0;
}

std::uint32_t WindowsProcessTable::ownerOf(std::uintptr_t windowHandle) {
    DWORD processId = 0;
    GetWindowThreadProcessId(reinterpret_cast<HWND>(windowHandle), &processId);
    if (processId == 0 || known_.contains(processId)) return processId;
    enableDebugPrivilege();
    SystemHandle process = ownHandle(OpenProcess(SYNCHRONIZE, FALSE, processId));
    if (process) known_[processId] = std::move(process);
    return processId;
}

}  // namespace

ProcessTable& systemProcessTable() {
    static WindowsProcessTable table;
    return table;
}

}  // namespace brasquelin
