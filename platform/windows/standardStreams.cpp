#include "platform/standardStreams.h"

#include <windows.h>

#include <string>

#include "platform/windows/systemHandle.h"
#include "platform/windows/wideText.h"
#include "text/text.h"

namespace brasquelin {

namespace {

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

/// A program with windows has a stream only where somebody redirected it.
bool writeBytes(StandardStream stream, std::string_view bytes) {
    const HANDLE file = GetStdHandle(stream == StandardStream::output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
    if (file == nullptr || file == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    return WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0;
}

bool writeTo(StandardStream stream, std::string_view text) {
    return writeBytes(stream, replaceAll(text, "\n", "\r\n"));
}

bool isTerminal(StandardStream /*stream*/) {
    return false;
}

void print(StandardStream stream, std::string_view text) {
    if (writeTo(stream, text)) return;
    const std::wstring wide = toWide(replaceAll(text, "\n", "\r\n"));
    if (writeToParentConsole(wide)) return;
    const bool output = stream == StandardStream::output;
    MessageBoxW(nullptr, wide.c_str(), L"Brasquelin", MB_OK | (output ? MB_ICONINFORMATION : MB_ICONERROR));
}

}  // namespace brasquelin
