#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "platform/paths.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/systemError.h"
#include "platform/systemFiles.h"
#include "text/substitution.h"

namespace brasquelin {

namespace {

bool statusOf(std::string_view path, struct stat& status) {
    std::string name(path);
    if (name.find('\\') == std::string::npos && stat(name.c_str(), &status) == 0) return true;
    name = resolvePath(path);
    return !name.empty() && stat(name.c_str(), &status) == 0;
}

/// The number of the open file, for a Descriptor. Opening a pipe would wait for whoever writes into it.
int openForReading(std::string_view path) {
    const std::string resolved = resolvePath(path);
    struct stat status {};
    if (statusOf(resolved, status) && !S_ISREG(status.st_mode)) {
        throw RunTimeError(ErrorNumber::pathFileAccess, std::string(path));
    }
    const int file = open(resolved.c_str(), O_RDONLY | O_CLOEXEC);
    if (file >= 0) return file;
    const int error = errno;
    const std::string directory = dirOf(resolved);
    const bool noDirectory = error == ENOENT && !directory.empty() && !directoryExists(directory);
    throw RunTimeError(noDirectory ? ErrorNumber::pathNotFound : errorNumberOf(error, FileUse::reading),
                       std::string(path));
}

}  // namespace

FileKind fileKindOf(std::string_view path) {
    struct stat status {};
    if (!statusOf(path, status)) return FileKind::none;
    return S_ISDIR(status.st_mode) ? FileKind::directory : FileKind::file;
}

std::vector<DirectoryEntry> entriesIn(std::string_view directory) {
    std::vector<DirectoryEntry> entries;
    std::error_code error;
    std::filesystem::directory_iterator at(systemPath(directory), error);
    for (; at != std::filesystem::directory_iterator(); at.increment(error)) {
        std::string name = at->path().filename().string();
        // A name with a back-slash cannot be opened: the back-slash would separate directories.
        if (name.starts_with('.') || name.find('\\') != std::string::npos) continue;
        std::error_code unknown;
        const auto status = at->symlink_status(unknown);
        if (!unknown) entries.push_back({std::move(name), std::filesystem::is_directory(status)});
    }
    return entries;
}

std::filesystem::path systemPath(std::string_view path) {
    return resolvePath(path);
}

std::filesystem::path currentDirectoryPath(std::string_view path) {
    return systemPath(path);
}

bool isSameDirectory(std::string_view left, std::string_view right) {
    struct stat one {};
    struct stat other {};
    if (!statusOf(left, one) || !statusOf(right, other) || !S_ISDIR(one.st_mode)) return false;
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

bool isLink(std::string_view path) {
    std::string name = resolvePath(path);
    while (name.size() > 1 && name.back() == '/') name.pop_back();  // the system would look behind the link
    struct stat status {};
    return lstat(name.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

std::string readFileBytes(std::string_view path, std::uint64_t most) {
    const Descriptor file(openForReading(path));
    struct stat status {};
    std::string bytes;
    if (fstat(file.get(), &status) == 0) {
        if (static_cast<std::uint64_t>(status.st_size) > most) raiseTooLarge(path, most);
        bytes.reserve(static_cast<std::size_t>(status.st_size) + 1);
    }
    char buffer[1 << 16];
    for (;;) {
        const ssize_t length = read(file.get(), buffer, sizeof buffer);
        if (length == 0) return bytes;
        if (length < 0 && errno != EINTR) raise(errno, FileUse::reading, path);
        if (length > 0) bytes.append(buffer, static_cast<std::size_t>(length));
        if (bytes.size() > most) raiseTooLarge(path, most);
    }
}

std::string readFilePart(std::string_view path, std::uint64_t begin, std::size_t most) {
    const Descriptor file(openForReading(path));
    std::string bytes;
    char buffer[1 << 16];
    while (bytes.size() < most) {
        const std::size_t wanted = std::min(most - bytes.size(), sizeof buffer);
        const ssize_t length = pread(file.get(), buffer, wanted, static_cast<off_t>(begin + bytes.size()));
        if (length == 0) break;
        if (length < 0 && errno != EINTR) raise(errno, FileUse::reading, path);
        if (length > 0) bytes.append(buffer, static_cast<std::size_t>(length));
    }
    return bytes;
}

std::optional<FileStamp> fileStamp(std::string_view path) {
    struct stat status {};
    if (!statusOf(path, status) || !S_ISREG(status.st_mode)) return std::nullopt;
    const std::int64_t modified = std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
    return FileStamp{static_cast<std::uint64_t>(status.st_size), modified, status.st_ino};
}

}  // namespace brasquelin
