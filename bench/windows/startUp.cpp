// Times the start of programs until their window is shown and idle, taking turns, and compares the fastest starts.
// Usage: startUp TIMES LIMIT PROGRAM TITLE BASE_PROGRAM BASE_TITLE
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

namespace {

struct Search {
    DWORD processId;
    const wchar_t* title;
    bool found;
};

BOOL CALLBACK compare(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD owner = 0;
    wchar_t title[256] = L"";
    GetWindowThreadProcessId(window, &owner);
    if (owner != search.processId || IsWindowVisible(window) == 0) return TRUE;
    GetWindowTextW(window, title, 256);
    search.found = std::wcscmp(title, search.title) == 0;
    return search.found ? FALSE : TRUE;
}

bool isShown(DWORD processId, const wchar_t* title) {
    Search search{processId, title, false};
    EnumWindows(compare, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

double milliseconds() {
    LARGE_INTEGER now;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double startOnce(const wchar_t* program, const wchar_t* title) {
    STARTUPINFOW info{};
    info.cb = sizeof info;
    PROCESS_INFORMATION process{};
    const double begin = milliseconds();
    if (CreateProcessW(program, nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &info, &process) == 0) {
        std::printf("cannot start %ls\n", program);
        std::exit(2);
    }
    bool shown = false;
    while (!shown && milliseconds() - begin < 30000) {
        Sleep(1);
        shown = isShown(process.dwProcessId, title);
    }
    WaitForInputIdle(process.hProcess, 30000);
    const double taken = milliseconds() - begin;
    TerminateProcess(process.hProcess, 0);
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    if (!shown) {
        std::printf("%ls shows no window\n", program);
        std::exit(2);
    }
    return taken;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 7) return 2;
    double fastest[2] = {1e9, 1e9};
    for (int turn = 0; turn < std::wcstol(argv[1], nullptr, 10); ++turn) {
        for (int i = 0; i < 2; ++i) fastest[i] = std::min(fastest[i], startOnce(argv[3 + 2 * i], argv[4 + 2 * i]));
    }
    const double ratio = fastest[0] / fastest[1];
    std::printf("start-up %.0f ms, an empty window %.0f ms, ratio %.2f\n", fastest[0], fastest[1], ratio);
    return ratio <= std::wcstod(argv[2], nullptr) ? 0 : 1;
}
