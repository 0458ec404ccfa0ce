#include "platform/paths.h"

#include <windows.h>

#include <shlwapi.h>

#include <algorithm>

#include "platform/files.h"
#include "platform/systemFiles.h"
#include "platform/windows/systemHandle.h"
#include "platform/windows/wideText.h"
#include "text/substitution.h"

namespace brasquelin {

const char pathSeparator = '\\';
const std::string_view programFileName = "Brasquelin.exe";

namespace {

bool isSeparator(char character) {
    return character == '\\' || character == '/';
}

bool hasDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':';
}

/// A drive alone stands for its root wherever a directory is meant.
std::string withRoot(std::string_view path) {
    return std::string(path) + (hasDrive(path) && path.size() == 2 ? "\\" : "");
}

std::wstring fullPath(const std::wstring& path) {
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

/// The prefix that lifts the limit on the length of a path.
std::wstring withoutLongPrefix(const std::wstring& path) {
    if (path.starts_with(L"\\\\?\\UNC\\")) return L"\\" + path.substr(7);
    return path.starts_with(L"\\\\?\\") ? path.substr(4) : path;
}

/// The command line behind the program's own path: a quoted one ends at the quote, any other at the first blank.
std::wstring_view behindProgram(std::wstring_view line) {
    const bool quoted = line.starts_with(L'"');
    const std::size_t end = quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
    if (end == std::wstring_view::npos) return {};
    return line.substr(quoted ? end + 1 : end);
}

}  // namespace

std::string ownProgramDirectory() {
    return dirOf(executablePath());
}

std::string executablePath() {
    std::wstring name(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()))) == name.size()) {
        name.resize(2 * name.size());
    }
    name.resize(length);
    return fromWide(name);
}

std::filesystem::path systemPath(std::string_view path) {
    return toWide(withRoot(path));
}

std::filesystem::path currentDirectoryPath(std::string_view path) {
    constexpr std::size_t room = 12;  // for a file in it
    const bool fits = fullPath(toWide(withRoot(path))).size() + room < MAX_PATH;
    const std::string shortForm = fits ? std::string() : shortPath(path);
    return shortForm.empty() ? systemPath(path) : std::filesystem::path(toWide(shortForm));
}

std::string shortPath(std::string_view path) {
    const std::wstring wide = toWide(path);
    std::wstring buffer(1024, L' ');
    DWORD length = GetShortPathNameW(wide.c_str(), buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length > buffer.size()) {
        buffer.assign(length + 1, L' ');
        length = GetShortPathNameW(wide.c_str(), buffer.data(), static_cast<DWORD>(buffer.size()));
    }
    return fromWide(std::wstring_view(buffer).substr(0, length));
}

bool isAbsolutePath(std::string_view path) {
    return hasDrive(path) || (!path.empty() && isSeparator(path.front()));
}

std::string anchoredPath(std::string_view path) {
    if (isAbsolutePath(path) || path.find_first_of("\\/") == std::string_view::npos) return std::string(path);
    if (!fileExists(path) && !directoryExists(path)) return std::string(path);
    return fromWide(fullPath(toWide(path)));
}

std::string resolvePath(std::string_view path) {
    return std::string(path);
}

std::string resolveProgram(std::string_view path) {
    return fileExists(path) ? std::string(path) : std::string();
}

std::string exactDirectory(std::string_view path) {
    const bool belowDrive = hasDrive(path) && path.size() > 2 && !isSeparator(path[2]);
    if (path.empty() || belowDrive) return {};  // a drive's own current directory is nobody's choice
    const std::wstring full = fullPath(toWide(withRoot(pathRelativeTo(programDirectory(), path))));
    const SystemHandle directory =
        ownHandle(CreateFileW(full.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!directory) return {};
    std::wstring found(GetFinalPathNameByHandleW(directory.get(), nullptr, 0, 0), L'\0');
    found.resize(GetFinalPathNameByHandleW(directory.get(), found.data(), static_cast<DWORD>(found.size()), 0));
    const std::string exact = fromWide(withoutLongPrefix(found));
    return directoryExists(exact) ? exact : std::string();
}

bool isFileSystemRoot(std::string_view path) {
    if (path.empty()) return false;
    const std::wstring full = fullPath(toWide(withRoot(path)));
    return PathIsRootW(withoutLongPrefix(full).c_str()) != 0;
}

std::string processCommandLine(int /*argc*/, const char* const* /*argv*/) {
    std::wstring_view line = behindProgram(GetCommandLineW());
    line.remove_prefix(std::min(line.find_first_not_of(L" \t"), line.size()));
    return fromWide(line);
}

std::vector<std::string> processArguments(int /*argc*/, const char* const* /*argv*/) {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(fromWide(words[i]));
    LocalFree(words);
    return arguments;
}

bool displayAvailable() {
    return true;
}

}  // namespace brasquelin
