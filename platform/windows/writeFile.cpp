#include <windows.h>

#include <algorithm>

#include "platform/files.h"
#include "platform/textFiles.h"
#include "platform/windows/systemError.h"
#include "platform/windows/systemHandle.h"
#include "platform/windows/wideText.h"

namespace brasquelin {

namespace {

enum class Durability { usual, onDisk };

[[noreturn]] void raise(DWORD code, std::string_view path) {
    ErrorNumber number = fileErrorOf(code);
    if (number == ErrorNumber::fileNotFound || directoryExists(path)) number = ErrorNumber::pathFileAccess;
    throw RunTimeError(number, std::string(path)).ofWriting();
}

SystemHandle openForWriting(const std::wstring& path, DWORD disposition) {
    return ownHandle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool writeAll(HANDLE file, std::string_view bytes) {
    constexpr std::size_t step = 1U << 20U;
    while (!bytes.empty()) {
        DWORD written = 0;
        if (WriteFile(file, bytes.data(), static_cast<DWORD>(std::min(step, bytes.size())), &written, nullptr) == 0) {
            return false;
        }
        bytes.remove_prefix(written);
    }
    return true;
}

/// The console, a printer port, a pipe: nothing that another file could be moved over.
bool isDevice(const std::wstring& path) {
    const bool pipe = path.starts_with(L"\\\\.\\");
    wchar_t full[MAX_PATH] = L"";
    const DWORD length = pipe ? 0 : GetFullPathNameW(path.c_str(), MAX_PATH, full, nullptr);
    // The system turns the name of a device into a path of its own kind.
    return pipe || (length > 0 && length < MAX_PATH && std::wstring_view(full).starts_with(L"\\\\.\\"));
}

/// Where a link leads; the link itself stays.
std::wstring behindLinks(std::string_view path) {
    std::wstring wide = toWide(path);
    if (!isLink(path)) return wide;
    const SystemHandle file =
        ownHandle(CreateFileW(wide.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file) return wide;
    std::wstring target(GetFinalPathNameByHandleW(file.get(), nullptr, 0, 0), L'\0');
    const DWORD length = GetFinalPathNameByHandleW(file.get(), target.data(), static_cast<DWORD>(target.size()), 0);
    if (length == 0 || length >= target.size()) return wide;
    target.resize(length);
    return target;
}

/// A name beside `path` that no other process uses.
std::wstring nameBeside(const std::wstring& path) {
    static unsigned counter = 0;
    return path + L"." + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++counter) + L".tmp";
}

/// 0, or the system's error code.
DWORD fill(const std::wstring& path, std::string_view bytes, Durability durability) {
    const SystemHandle file = openForWriting(path, CREATE_NEW);
    if (!file || !writeAll(file.get(), bytes)) return GetLastError();
    if (durability == Durability::onDisk && FlushFileBuffers(file.get()) == 0) return GetLastError();
    return 0;
}

void replaceFile(std::string_view path, std::string_view bytes, Durability durability) {
    forgetTextFiles();
    const std::wstring target = behindLinks(path);
    if (isDevice(target)) raise(ERROR_BAD_UNIT, path);
    const std::wstring beside = nameBeside(target);
    DWORD code = fill(beside, bytes, durability);
    const DWORD through = durability == Durability::onDisk ? MOVEFILE_WRITE_THROUGH : 0;
    if (code == 0 && MoveFileExW(beside.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | through) == 0) {
        code = GetLastError();
    }
    if (code == 0) return;
    DeleteFileW(beside.c_str());
    raise(code, path);
}

}  // namespace

void writeFile(std::string_view path, std::string_view bytes) {
    replaceFile(path, bytes, Durability::usual);
}

void saveFile(std::string_view path, std::string_view bytes) {
    replaceFile(path, bytes, Durability::onDisk);
}

}  // namespace brasquelin
