#include <windows.h>

#include <map>
#include <stdexcept>

#include "platform/childProcess.h"
#include "platform/windows/debugPrivilege.h"
#include "platform/windows/jobObject.h"
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
    std::uint32_t startToWaitFor(std::string_view command, WindowStyle style) override;
    bool isRunning(std::uint32_t processId) override;
    bool terminate(std::uint32_t processId) override;
    std::uint32_t ownerOf(std::uintptr_t windowHandle) override;

  private:
    std::uint32_t create(std::string_view command, WindowStyle style, HANDLE job);

    // While the handle is kept, the system does not give the id to another process.
    std::map<std::uint32_t, SystemHandle> known_;
    // Of those that are waited for: they end with the program.
    std::map<std::uint32_t, SystemHandle> jobs_;
};

STARTUPINFOW startUpInfo(WindowStyle style) {
    STARTUPINFOW info{};
    info.cb = sizeof info;
    info.dwFlags = STARTF_USESHOWWINDOW;
    info.wShowWindow = style == WindowStyle::hidden ? SW_HIDE : SW_SHOWNORMAL;
    return info;
}

std::uint32_t WindowsProcessTable::start(std::string_view command, WindowStyle style) {
    return create(command, style, nullptr);
}

std::uint32_t WindowsProcessTable::startToWaitFor(std::string_view command, WindowStyle style) {
    SystemHandle job = newJobObject();
    if (!job) return start(command, style);
    const std::uint32_t processId = create(command, style, job.get());
    jobs_[processId] = std::move(job);
    return processId;
}

std::uint32_t WindowsProcessTable::create(std::string_view command, WindowStyle style, HANDLE job) {
    ProgramStart program = programStartOf(command);
    STARTUPINFOW info = startUpInfo(style);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(program.program.c_str(), program.commandLine.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED,
                       nullptr, nullptr, &info, &process) == 0) {
        throw RunTimeError(startErrorOf(GetLastError()), fromWide(program.program));
    }
    known_[process.dwProcessId] = beginInJob(process, job);
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
    if (const auto job = jobs_.find(processId); job != jobs_.end()) {
        letJobGoOn(job->second.get());  // what it left in the background
        jobs_.erase(job);
    }
    return false;
}

bool WindowsProcessTable::terminate(std::uint32_t processId) {
    if (!isRunning(processId)) return false;
    enableDebugPrivilege();
    const SystemHandle process = ownHandle(OpenProcess(terminateAccess, FALSE, processId));
    const bool ended = process && TerminateProcess(process.get(), 0) != 0;
    if (ended) jobs_.erase(processId);  // and all that it started
    return ended;
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
