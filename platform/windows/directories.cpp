#include <windows.h>

#include <algorithm>

#include "platform/files.h"
#include "platform/windows/wideText.h"
#include "text/text.h"

namespace brasquelin {

namespace {

bool isLinkEntry(const WIN32_FIND_DATAW& entry) {
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
    return entry.dwReserved0 == IO_REPARSE_TAG_SYMLINK || entry.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT;
}

bool isListed(const WIN32_FIND_DATAW& entry, bool directories) {
    if ((entry.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0) return false;
    const std::wstring_view name = entry.cFileName;
    if (name == L"." || name == L"..") return false;
    const bool directory = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && !isLinkEntry(entry);
    return directory == directories;
}

void sortNames(std::vector<std::string>& names) {
    std::vector<std::pair<std::string, std::string>> keyed;
    keyed.reserve(names.size());
    for (std::string& name : names) keyed.emplace_back(lowerCase(name), std::move(name));
    std::sort(keyed.begin(), keyed.end());
    for (std::size_t i = 0; i < keyed.size(); ++i) names[i] = std::move(keyed[i].second);
}

std::vector<std::string> namesIn(std::string_view directory, bool directories) {
    std::vector<std::string> names;
    if (directory.empty()) return names;
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW(toWide(std::string(directory) + "\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        if (isListed(entry, directories)) names.push_back(fromWide(entry.cFileName));
    } while (FindNextFileW(search, &entry) != 0);
    FindClose(search);
    sortNames(names);
    return names;
}

}  // namespace

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

bool deleteFile(std::string_view path) noexcept {
    try {
        const bool linkedDirectory = directoryExists(path) && isLink(path);
        const std::wstring wide = toWide(path);
        return (linkedDirectory ? RemoveDirectoryW(wide.c_str()) : DeleteFileW(wide.c_str())) != 0;
    } catch (...) {
        return false;
    }
}

bool removeDirectory(std::string_view path) noexcept {
    try {
        return RemoveDirectoryW(toWide(path).c_str()) != 0;
    } catch (...) {
        return false;
    }
}

std::vector<std::string> listFiles(std::string_view directory) {
    return namesIn(directory, false);
}

std::vector<std::string> listDirectories(std::string_view directory) {
    return namesIn(directory, true);
}

}  // namespace brasquelin
