#include "platform/standardStreams.h"

#include <windows.h>

#include <string>

#include "platform/windows/systemHandle.h"
#include "platform/windows/wideText.h"
#include "text/text.h"

namespace brasquelin {

namespace {

/// A program with windows has a stream only where somebody redirected it. False when this one leads nowhere.
bool writeRedirected(DWORD stream, const std::string& text) {
    const HANDLE file = GetStdHandle(stream);
    if (file == nullptr || file == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    return WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0;
}

bool writeToParentConsole(const std::wstring& text) {
    if (AttachConsole(ATTACH_PARENT_PROCESS) == 0) return false;
    const SystemHandle console = ownHandle(
        CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    DWORD written = 0;
    const bool done =
        console && WriteConsoleW(console.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0;
    FreeConsole();
    return done;
}

}  // namespace

void print(StandardStream stream, std::string_view text) {
    const std::string lines = replaceAll(text, "\n", "\r\n");
    const bool output = stream == StandardStream::output;
    if (writeRedirected(output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE, lines)) return;
    const std::wstring wide = toWide(lines);
    if (writeToParentConsole(wide)) return;
    MessageBoxW(nullptr, wide.c_str(), L"Brasquelin", MB_OK | (output ? MB_ICONINFORMATION : MB_ICONERROR));
}

}  // namespace brasquelin
