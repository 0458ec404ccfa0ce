#include "platform/files.h"

#include <windows.h>

#include <algorithm>

#include "platform/systemFiles.h"
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

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

SystemHandle openExisting(const std::wstring& path, DWORD access, DWORD flags = FILE_ATTRIBUTE_NORMAL) {
    return ownHandle(CreateFileW(path.c_str(), access, shareAll, nullptr, OPEN_EXISTING, flags, nullptr));
}

/// A console, a printer port and a pipe open like files, but their end may never come.
SystemHandle openForReading(std::string_view path) {
    SystemHandle file = openExisting(toWide(path), GENERIC_READ);
    if (!file) raiseLastError(path);
    if (GetFileType(file.get()) == FILE_TYPE_DISK) return file;
    throw RunTimeError(ErrorNumber::pathFileAccess, std::string(path));
}

std::uint64_t join(DWORD high, DWORD low) {
    return (std::uint64_t{high} << 32U) | low;
}

bool isLinkEntry(const WIN32_FIND_DATAW& entry) {
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
    return entry.dwReserved0 == IO_REPARSE_TAG_SYMLINK || entry.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT;
}

bool isListed(const WIN32_FIND_DATAW& entry) {
    const std::wstring_view name = entry.cFileName;
    return name != L"." && name != L".." &&
           (entry.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) == 0;
}

}  // namespace

/// The C library under std::filesystem takes no drive alone for a directory and finds nothing below "\\?\".
FileKind fileKindOf(std::string_view path) {
    const DWORD attributes = GetFileAttributesW(toWide(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return FileKind::none;
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::directory : FileKind::file;
}

/// One search tells names and attributes, also of paths longer than the C library can read.
std::vector<DirectoryEntry> entriesIn(std::string_view directory) {
    std::vector<DirectoryEntry> entries;
    if (directory.empty()) return entries;
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW(toWide(std::string(directory) + "\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return entries;
    do {
        const bool directoryItself = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && !isLinkEntry(entry);
        if (isListed(entry)) entries.push_back({fromWide(entry.cFileName), directoryItself});
    } while (FindNextFileW(search, &entry) != 0);
    FindClose(search);
    return entries;
}

bool isLink(std::string_view path) {
    while (path.size() > 1 && (path.back() == '\\' || path.back() == '/')) path.remove_suffix(1);
    const std::wstring wide = toWide(path);
    const DWORD attributes = GetFileAttributesW(wide.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW(wide.c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return false;
    FindClose(search);
    return isLinkEntry(entry);
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

std::string readFileBytes(std::string_view path, std::uint64_t most) {
    const SystemHandle file = openForReading(path);
    LARGE_INTEGER known{};
    if (GetFileSizeEx(file.get(), &known) != 0 && static_cast<std::uint64_t>(known.QuadPart) > most) {
        raiseTooLarge(path, most);
    }
    std::string bytes;
    DWORD got = 0;
    do {
        constexpr DWORD step = 1U << 16U;
        const std::size_t size = bytes.size();
        bytes.resize(size + step);
        if (ReadFile(file.get(), bytes.data() + size, step, &got, nullptr) == 0) {
            raiseLastError(path);
        }
        bytes.resize(size + got);
        if (bytes.size() > most) raiseTooLarge(path, most);
    } while (got > 0);
    return bytes;
}

std::string readFilePart(std::string_view path, std::uint64_t begin, std::size_t most) {
    const SystemHandle file = openForReading(path);
    LARGE_INTEGER position;
    position.QuadPart = static_cast<LONGLONG>(begin);
    if (SetFilePointerEx(file.get(), position, nullptr, FILE_BEGIN) == 0) raiseLastError(path);
    std::string bytes(most, '\0');
    std::size_t size = 0;
    while (size < most) {
        DWORD got = 0;
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(most - size, 1U << 24U));
        if (ReadFile(file.get(), bytes.data() + size, wanted, &got, nullptr) == 0) raiseLastError(path);
        if (got == 0) break;
        size += got;
    }
    bytes.resize(size);
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

}  // namespace brasquelin
