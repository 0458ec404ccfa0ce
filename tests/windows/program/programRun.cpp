#include "windows/program/programRun.h"

#include <gtest/gtest.h>

#include "platform/codePages.h"
#include "platform/paths.h"
#include "platform/windows/wideText.h"
#include "text/text.h"
#include "windows/becomesTrue.h"

namespace brasquelin {

namespace {

std::filesystem::path testDirectory() {
    wchar_t name[MAX_PATH];
    GetModuleFileNameW(nullptr, name, MAX_PATH);
    return std::filesystem::path(name).parent_path();
}

/// The program beside or above the test program.
std::filesystem::path builtProgram() {
    for (std::filesystem::path place = testDirectory();; place = place.parent_path()) {
        auto program = place / L"Brasquelin" / L"Brasquelin.exe";
        if (std::filesystem::exists(program) || place == place.parent_path()) return program;
    }
}

struct WindowSearch {
    DWORD processId = 0;
    std::wstring title;
    HWND found = nullptr;
    std::string texts;
};

std::wstring titleOf(HWND window) {
    wchar_t text[512] = L"";
    SendMessageTimeoutW(window, WM_GETTEXT, 512, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG, 2000, nullptr);
    return text;
}

bool isVisibleOf(HWND window, DWORD processId) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    return owner == processId && IsWindowVisible(window) != 0;
}

BOOL CALLBACK compareTitle(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<WindowSearch*>(parameter);
    if (isVisibleOf(window, search.processId)) {
        search.texts += textsOf(window) + "\n";
        if (titleOf(window) == search.title) search.found = window;
    }
    return search.found == nullptr;
}

BOOL CALLBACK appendText(HWND window, LPARAM parameter) {
    auto& texts = *reinterpret_cast<std::string*>(parameter);
    const std::wstring text = titleOf(window);
    if (!text.empty()) texts += " | " + fromWide(text);
    return TRUE;
}

WindowSearch searchWindows(DWORD processId, std::wstring_view title) {
    WindowSearch search;
    search.processId = processId;
    search.title = title;
    EnumWindows(compareTitle, reinterpret_cast<LPARAM>(&search));
    return search;
}

}  // namespace

ProgramRun::ProgramRun() : shortDirectory_(shortPath(utf8(path()))) {
    std::filesystem::copy_file(builtProgram(), path() / L"Brasquelin.exe");
    writeLines("Brasquelin.ini", "#Brasquelin Initialize\n[config]\n[/config]\n[var]\n[/var]");
}

ProgramRun::~ProgramRun() {
    closeProcess();
}

void ProgramRun::closeProcess() {
    if (process_.hProcess == nullptr) return;
    TerminateProcess(process_.hProcess, 99);
    WaitForSingleObject(process_.hProcess, 5000);
    CloseHandle(process_.hProcess);
    CloseHandle(process_.hThread);
    process_ = {};
}

std::string ProgramRun::writeLines(std::string_view name, std::string_view lines) const {
    return write(name, encodeFile(replaceAll(lines, "\n", "\r\n")) + "\r\n");
}

std::string ProgramRun::writeProfile(std::string_view name, std::string_view library, std::string_view body) const {
    writeLines("line.bqs",
               "#Brasquelin Library  line\n[var]\ntext\n.Type=Text\n.Info=A line\n[/var]\n"
               "[command]\ntype=shell\ncommand=$text$\n[/command]");
    return writeLines(name, "#Brasquelin Profile Test\n[library]\n:include $exepath$\\line.bqs\n" +
                                std::string(library) +
                                "\n[/library]\n[var]\nx\n.Type=Text\n.Info=Anything\n[/var]\n[profile]\n" +
                                std::string(body) + "\n[/profile]");
}

void ProgramRun::copyHelper(std::wstring_view name) const {
    std::filesystem::copy_file(testDirectory() / L"helper.exe", path() / name);
}

void ProgramRun::start(std::string_view commandLine) {
    closeProcess();
    const std::wstring program = (path() / L"Brasquelin.exe").wstring();
    const std::wstring elsewhere = path().parent_path().wstring();
    std::wstring command = L'"' + program + L"\" " + toWide(commandLine);
    STARTUPINFOW info{};
    info.cb = sizeof info;
    const BOOL started = CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                        elsewhere.c_str(), &info, &process_);
    ASSERT_NE(started, 0) << "cannot start " << utf8(program) << ", error " << GetLastError();
}

bool ProgramRun::waitForEnd(unsigned seconds) {
    if (WaitForSingleObject(process_.hProcess, seconds * 1000) == WAIT_OBJECT_0) return true;
    ADD_FAILURE() << "still running; its windows: " << searchWindows(process_.dwProcessId, L"\n").texts;
    return false;
}

bool ProgramRun::run(std::string_view commandLine) {
    start(commandLine);
    return waitForEnd();
}

DWORD ProgramRun::exitCode() const {
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

HWND ProgramRun::awaitWindow(std::wstring_view title) const {
    WindowSearch search;
    const bool found = becomesTrue([&] {
        search = searchWindows(process_.dwProcessId, title);
        return search.found != nullptr;
    });
    EXPECT_TRUE(found) << "no window " << fromWide(title) << "; there are: " << search.texts;
    return search.found;
}

bool clickButton(HWND window, std::wstring_view label) {
    const HWND button = FindWindowExW(window, nullptr, L"Button", std::wstring(label).c_str());
    return button != nullptr && PostMessageW(button, BM_CLICK, 0, 0) != 0;
}

std::string textsOf(HWND window) {
    std::string texts = fromWide(titleOf(window));
    EnumChildWindows(window, appendText, reinterpret_cast<LPARAM>(&texts));
    return texts;
}

std::string classValue(const std::wstring& key) {
    wchar_t value[1024] = L"";
    DWORD size = sizeof value;
    RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value, &size);
    return fromWide(value);
}

}  // namespace brasquelin
