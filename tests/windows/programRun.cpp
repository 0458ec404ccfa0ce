#include "support/programRun.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/wideText.h"

namespace brasquelin {

namespace {

HANDLE handleOf(std::intptr_t process) {
    return reinterpret_cast<HANDLE>(process);
}

HANDLE openForChild(const std::filesystem::path& file) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inherited,
                       CREATE_ALWAYS, 0, nullptr);
}

}  // namespace

void ProgramRun::start(const std::string& commandLine) {
    endByForce();
    const std::wstring program = (path() / L"Brasquelin.exe").wstring();
    std::wstring command = L'"' + program + L"\" " + toWide(commandLine);
    STARTUPINFOW info{};
    info.cb = sizeof info;
    info.dwFlags = STARTF_USESTDHANDLES;
    info.hStdOutput = openForChild(path() / L"out.txt");
    info.hStdError = openForChild(path() / L"err.txt");
    PROCESS_INFORMATION started{};
    const BOOL good = CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                     path().c_str(), &info, &started);
    for (const HANDLE mine : {info.hStdOutput, info.hStdError, started.hThread}) CloseHandle(mine);
    ASSERT_NE(good, 0) << "cannot start " << utf8(program) << ", error " << GetLastError();
    process_ = reinterpret_cast<std::intptr_t>(started.hProcess);
}

int ProgramRun::waitForEnd() {
    DWORD status = 0;
    if (WaitForSingleObject(handleOf(process_), 60000) != WAIT_OBJECT_0) {
        ADD_FAILURE() << "still running";
        return -1;
    }
    GetExitCodeProcess(handleOf(process_), &status);
    endByForce();
    return static_cast<int>(status);
}

void ProgramRun::endByForce() {
    if (process_ == 0) return;
    TerminateProcess(handleOf(process_), 99);
    WaitForSingleObject(handleOf(process_), 5000);
    CloseHandle(handleOf(process_));
    process_ = 0;
}

}  // namespace brasquelin
