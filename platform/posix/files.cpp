#include "platform/files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <utility>

#include "platform/paths.h"
#include "platform/posix/endingSignals.h"
#include "platform/posix/systemError.h"
#include "platform/textFiles.h"
#include "text/substitution.h"
#include "text/text.h"

namespace brasquelin {

namespace {

/// Closes what it holds.
class Descriptor {
  public:
    explicit Descriptor(int value) : value_(value) {}
    ~Descriptor() { reset(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return value_; }
    explicit operator bool() const { return value_ >= 0; }
    /// False when the system reports a late write error.
    bool reset() {
        const int value = std::exchange(value_, -1);
        return value < 0 || close(value) == 0;
    }

  private:
    int value_;
};

bool statusOf(std::string_view path, struct stat& status) {
    std::string name(path);
    if (name.find('\\') == std::string::npos && stat(name.c_str(), &status) == 0) return true;
    name = resolvePath(path);
    return !name.empty() && stat(name.c_str(), &status) == 0;
}

/// 0, or the errno of the write that failed.
int writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return errno;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

/// A link is followed, so that the file behind it is replaced or created and the link stays.
std::string targetOf(std::string_view path) {
    constexpr int mostLinks = 40;
    std::filesystem::path target = resolvePath(path);
    std::error_code error;
    for (int i = 0; i < mostLinks && std::filesystem::is_symlink(target, error); ++i) {
        target = target.parent_path() / std::filesystem::read_symlink(target, error);
    }
    return target.string();
}

bool isSpecial(const std::string& target) {
    struct stat status {};
    return stat(target.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

void writeDirectly(const std::string& target, std::string_view bytes, std::string_view path) {
    Descriptor file(open(target.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file) raise(errno, FileUse::writing, path);
    if (const int error = writeAll(file.get(), bytes)) raise(error, FileUse::writing, path);
}

void flushDirectory(const std::string& file) {
    const std::string directory = dirOf(file);
    const Descriptor descriptor(open(directory.empty() ? "/" : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor) fsync(descriptor.get());
}

/// Writes a temporary file beside the target; 0, or the errno of the step that failed.
int fillTemporary(Descriptor& file, const std::string& target, std::string_view bytes, bool durable) {
    struct stat status {};
    const bool replaces = stat(target.c_str(), &status) == 0;
    const mode_t mask = umask(0);
    umask(mask);
    // Only the system's administrator can keep the owner of somebody else's file; before the mode, which it may change.
    const bool ownerKept = !replaces || fchown(file.get(), status.st_uid, status.st_gid) == 0;
    const mode_t kept = ownerKept ? 07777 : 0777;
    if (fchmod(file.get(), replaces ? status.st_mode & kept : 0666 & ~mask) != 0) return errno;
    if (const int error = writeAll(file.get(), bytes)) return error;
    if (durable && fsync(file.get()) != 0) return errno;
    return file.reset() ? 0 : errno;
}

void replaceFile(std::string_view path, std::string_view bytes, bool durable) {
    forgetTextFiles();
    const std::string target = targetOf(path);
    if (isSpecial(target)) return writeDirectly(target, bytes, path);
    if (directoryExists(target)) raise(EISDIR, FileUse::writing, path);
    struct stat status {};
    if (stat(target.c_str(), &status) == 0 && access(target.c_str(), W_OK) != 0) raise(errno, FileUse::writing, path);
    const SignalHold hold;  // no half-written file stays behind
    std::string temporary = target + ".XXXXXX";
    Descriptor file(mkostemp(temporary.data(), O_CLOEXEC));
    if (!file) raise(errno, FileUse::writing, path);
    int error = fillTemporary(file, target, bytes, durable);
    if (error == 0 && std::rename(temporary.c_str(), target.c_str()) != 0) error = errno;
    if (error != 0) {
        unlink(temporary.c_str());
        raise(error, FileUse::writing, path);
    }
    if (durable) flushDirectory(target);
}

/// The names in a directory of which `wanted` is true.
std::vector<std::string> listEntries(std::string_view directory,
                                     const std::function<bool(const struct stat&)>& wanted) {
    const std::string folder = resolvePath(directory);
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(folder.c_str()), closedir);
    std::vector<std::string> names;
    while (listing) {
        const dirent* entry = readdir(listing.get());
        if (entry == nullptr) break;
        const std::string name = entry->d_name;
        struct stat status {};
        // A name with a back-slash cannot be opened: the back-slash would separate directories.
        const bool unreachable = name.find('\\') != std::string::npos;
        if (name.starts_with('.') || unreachable || lstat(joinPath(folder, name).c_str(), &status) != 0) continue;
        if (wanted(status)) names.push_back(name);
    }
    std::sort(names.begin(), names.end(), [](const std::string& left, const std::string& right) {
        const std::string foldedLeft = lowerCase(left);
        const std::string foldedRight = lowerCase(right);
        return foldedLeft != foldedRight ? foldedLeft < foldedRight : left < right;
    });
    return names;
}

}  // namespace

bool fileExists(std::string_view path) {
    struct stat status {};
    return statusOf(path, status) && !S_ISDIR(status.st_mode);
}

bool directoryExists(std::string_view path) {
    struct stat status {};
    return statusOf(path, status) && S_ISDIR(status.st_mode);
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

std::string readFileBytes(std::string_view path) {
    const std::string resolved = resolvePath(path);
    if (directoryExists(resolved)) throw RunTimeError(ErrorNumber::pathFileAccess, std::string(path));
    const Descriptor file(open(resolved.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) {
        const int error = errno;
        const std::string directory = dirOf(resolved);
        const bool noDirectory = error == ENOENT && !directory.empty() && !directoryExists(directory);
        throw RunTimeError(noDirectory ? ErrorNumber::pathNotFound : errorNumberOf(error, FileUse::reading),
                           std::string(path));
    }
    struct stat status {};
    std::string bytes;
    if (fstat(file.get(), &status) == 0) bytes.reserve(static_cast<std::size_t>(status.st_size) + 1);
    char buffer[1 << 16];
    for (;;) {
        const ssize_t length = read(file.get(), buffer, sizeof buffer);
        if (length == 0) return bytes;
        if (length < 0 && errno != EINTR) raise(errno, FileUse::reading, path);
        if (length > 0) bytes.append(buffer, static_cast<std::size_t>(length));
    }
}

std::optional<FileStamp> fileStamp(std::string_view path) {
    struct stat status {};
    if (!statusOf(path, status) || !S_ISREG(status.st_mode)) return std::nullopt;
    const std::int64_t modified = std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
    return FileStamp{static_cast<std::uint64_t>(status.st_size), modified, status.st_ino};
}

void writeFile(std::string_view path, std::string_view bytes) {
    replaceFile(path, bytes, false);
}

void saveFile(std::string_view path, std::string_view bytes) {
    replaceFile(path, bytes, true);
}

bool deleteFile(std::string_view path) noexcept {
    return unlink(resolvePath(path).c_str()) == 0;
}

bool removeDirectory(std::string_view path) noexcept {
    return rmdir(resolvePath(path).c_str()) == 0;
}

std::vector<std::string> listFiles(std::string_view directory) {
    return listEntries(directory, [](const struct stat& status) { return !S_ISDIR(status.st_mode); });
}

std::vector<std::string> listDirectories(std::string_view directory) {
    return listEntries(directory, [](const struct stat& status) { return S_ISDIR(status.st_mode); });
}

void changeDirectory(std::string_view path) {
    if (chdir(resolvePath(path).c_str()) != 0) throw RunTimeError(ErrorNumber::pathNotFound, std::string(path));
}

std::string currentDirectory() {
    const std::unique_ptr<char, void (*)(void*)> directory(getcwd(nullptr, 0), std::free);
    return directory ? std::string(directory.get()) : std::string();
}

}  // namespace brasquelin
