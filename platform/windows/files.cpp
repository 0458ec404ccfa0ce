#include "platform/files.h"

#include <windows.h>

#include "platform/paths.h"
#include "platform/windows/systemError.h"
#include "platform/windows/systemHandle.h"
#include "platform/windows/wideText.h"

namespace brasquelin {

namespace {

[[noreturn]] void raiseLastError(std::string_view path) {
    const DWORD code = GetLastError();
    // Opening a directory as a file is refused like a missing right.
    const bool directory = code == ERROR_ACCESS_DENIED && directoryExists(path);
    throw RunTimeError(directory ? ErrorNumber::pathFileAccess : fileErrorOf(code), std::string(path));
}

DWORD attributesOf(std::string_view path) {
    return GetFileAttributesW(toWide(path).c_str());
}

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

SystemHandle openExisting(const std::wstring& path, DWORD access, DWORD flags = FILE_ATTRIBUTE_NORMAL) {
    return ownHandle(CreateFileW(path.c_str(), access, shareAll, nullptr, OPEN_EXISTING, flags, nullptr));
}

std::uint64_t join(DWORD high, DWORD low) {
    return (std::uint64_t{high} << 32U) | low;
}

}  // namespace

bool fileExists(std::string_view path) {
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool directoryExists(std::string_view path) {
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool isSameDirectory(std::string_view left, std::string_view right) {
    if (!directoryExists(left) || !directoryExists(right)) return false;
    // While both are open, their numbers are their own.
    const SystemHandle one = openExisting(toWide(left), FILE_READ_ATTRIBUTES, FILE_FLAG_BACKUP_SEMANTICS);
    const SystemHandle other = openExisting(toWide(right), FILE_READ_ATTRIBUTES, FILE_FLAG_BACKUP_SEMANTICS);
    BY_HANDLE_FILE_INFORMATION a{};
    BY_HANDLE_FILE_INFORMATION b{};
    if (!one || !other || GetFileInformationByHandle(one.get(), &a) == 0) return false;
    if (GetFileInformationByHandle(other.get(), &b) == 0 || a.dwVolumeSerialNumber != b.dwVolumeSerialNumber) {
        return false;
    }
    return join(a.nFileIndexHigh, a.nFileIndexLow) == join(b.nFileIndexHigh, b.nFileIndexLow);
}

std::string readFileBytes(std::string_view path) {
    const SystemHandle file = openExisting(toWide(path), GENERIC_READ);
    if (!file) raiseLastError(path);
    std::string bytes;
    DWORD got = 0;
    do {
        constexpr DWORD step = 1U << 16U;
        const std::size_t size = bytes.size();
        bytes.resize(size + step);
        if (ReadFile(file.get(), bytes.data() + size, step, &got, nullptr) == 0) {
            if (GetLastError() != ERROR_BROKEN_PIPE) raiseLastError(path);
            got = 0;
        }
        bytes.resize(size + got);
    } while (got > 0);
    return bytes;
}

std::optional<FileStamp> fileStamp(std::string_view path) {
    const SystemHandle file = openExisting(toWide(path), FILE_READ_ATTRIBUTES);
    BY_HANDLE_FILE_INFORMATION info{};
    if (!file || GetFileInformationByHandle(file.get(), &info) == 0) return std::nullopt;
    FileStamp stamp;
    stamp.size = join(info.nFileSizeHigh, info.nFileSizeLow);
    const std::uint64_t time = join(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime);
    stamp.modified = static_cast<std::int64_t>(time * 100);  // the system counts tenths of a microsecond
    stamp.identity = join(info.nFileIndexHigh, info.nFileIndexLow);
    return stamp;
}

void changeDirectory(std::string_view path) {
    // A drive alone means its root; the system would take the directory last used there.
    const std::string root = path.size() == 2 && path[1] == ':' ? std::string(path) + "\\" : std::string(path);
    if (SetCurrentDirectoryW(toWide(root).c_str()) == 0) {
        throw RunTimeError(ErrorNumber::pathNotFound, std::string(path));
    }
}

std::string currentDirectory() {
    std::wstring directory(GetCurrentDirectoryW(0, nullptr), L'\0');
    directory.resize(GetCurrentDirectoryW(static_cast<DWORD>(directory.size()), directory.data()));
    return fromWide(directory);
}

}  // namespace brasquelin
