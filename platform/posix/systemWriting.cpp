#include "platform/systemWriting.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>

#include "platform/paths.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/endingSignals.h"
#include "platform/posix/systemError.h"
#include "platform/temporaryName.h"

namespace brasquelin {

namespace {

using Path = std::filesystem::path;

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
Path behindLinks(std::string_view path) {
    constexpr int mostLinks = 40;
    Path target = resolvePath(path);
    std::error_code error;
    for (int i = 0; i < mostLinks && std::filesystem::is_symlink(target, error); ++i) {
        target = target.parent_path() / std::filesystem::read_symlink(target, error);
    }
    return target;
}

const char* nameOf(const Path& directory) {
    return directory.empty() ? "." : directory.c_str();
}

std::size_t longestName(const Path& directory) {
    const long most = pathconf(nameOf(directory), _PC_NAME_MAX);
    return most > 0 ? static_cast<std::size_t>(most) : NAME_MAX;
}

void flushDirectory(const Path& directory) {
    const Descriptor descriptor(open(nameOf(directory), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor) fsync(descriptor.get());
}

/// The lock of the file tells whether whoever created it is alive.
bool lockFile(int descriptor) {
    return flock(descriptor, LOCK_EX | LOCK_NB) == 0;
}

/// The file may have been moved or removed before it was locked.
bool isStillNamed(int descriptor, const Path& path) {
    struct stat opened {};
    struct stat named {};
    return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
           opened.st_dev == named.st_dev;
}

bool removeLeftover(const Path& path) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    return file && lockFile(file.get()) && isStillNamed(file.get(), path) && unlink(path.c_str()) == 0;
}

class PosixTemporary : public TemporaryFile {
  public:
    PosixTemporary(const Path& directory, const Path& name) {
        constexpr std::size_t mostAtOnce = 100;
        const std::size_t longest = longestName(directory);
        error_ = EEXIST;
        for (std::size_t number = 0; number < mostAtOnce && error_ == EEXIST; ++number) {
            path_ = directory / temporaryName(name.native(), number, longest);
            if (!create() && removeLeftover(path_)) create();
        }
    }
    ~PosixTemporary() override {
        if (file_ && !kept_) unlink(path_.c_str());
    }
    PosixTemporary(const PosixTemporary&) = delete;
    PosixTemporary& operator=(const PosixTemporary&) = delete;

    int error() const override { return error_; }
    const Path& path() const override { return path_; }
    void setKept(bool kept) override { kept_ = kept; }

    void becomeLike(const Path& target) override {
        if (error_ != 0) return;
        struct stat status {};
        const bool replaces = stat(target.c_str(), &status) == 0;
        const mode_t mask = umask(0);
        umask(mask);
        // Only the system's administrator can keep the owner of somebody else's file; before the mode, which it may
        // change.
        const bool ownerKept = !replaces || fchown(file_.get(), status.st_uid, status.st_gid) == 0;
        const mode_t allowed = ownerKept ? 07777 : 0777;
        failIf(fchmod(file_.get(), replaces ? status.st_mode & allowed : 0666 & ~mask) != 0);
    }

    void fill(std::string_view bytes, Durability durability) override {
        if (error_ != 0) return;
        error_ = writeAll(file_.get(), bytes);
        failIf(error_ == 0 && durability == Durability::onDisk && fsync(file_.get()) != 0);
        // Some systems tell only then what could not be written; the file stays open for its lock.
        failIf(error_ == 0 && close(dup(file_.get())) != 0);
    }

    void moveOver(const Path& target, Durability durability) override {
        if (error_ != 0) return;
        failIf(std::rename(path_.c_str(), target.c_str()) != 0);
        kept_ = error_ == 0;
        if (kept_ && durability == Durability::onDisk) flushDirectory(target.parent_path());
    }

  private:
    bool create() {
        const int opened = open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
        error_ = opened < 0 ? errno : 0;
        if (opened < 0) return false;
        file_.reset(opened);
        // Somebody may take it for a leftover before it is locked. Where there are no locks, nobody takes any.
        const bool taken = !lockFile(opened) && errno == EWOULDBLOCK;
        if (!taken && isStillNamed(opened, path_)) return true;
        file_.reset();
        error_ = EEXIST;
        return false;
    }
    void failIf(bool failed) {
        if (failed) error_ = errno;
    }

    const SignalHold hold_;  // what is begun is ended or removed
    Descriptor file_{-1};
    Path path_;
    int error_ = 0;
    bool kept_ = false;
};

}  // namespace

WriteTarget writeTargetOf(std::string_view path) {
    WriteTarget target{.path = behindLinks(path)};
    struct stat status {};
    if (stat(target.path.c_str(), &status) != 0) return target;
    target.exists = true;
    target.hasOtherNames = status.st_nlink > 1;
    // Nothing can be moved over a directory, nor over a device or pipe, which nobody may be reading.
    if (!S_ISREG(status.st_mode)) target.error = EISDIR;
    if (target.error == 0 && access(target.path.c_str(), W_OK) != 0) target.error = errno;
    return target;
}

std::unique_ptr<TemporaryFile> openTemporary(const Path& directory, const Path& name) {
    return std::make_unique<PosixTemporary>(directory, name);
}

bool isRefusalToReplace(int error) {
    return error == EACCES || error == EPERM || error == EBUSY || error == EXDEV || error == ENAMETOOLONG;
}

int overwriteFile(const Path& target, std::string_view bytes, Durability durability) {
    Descriptor file(open(target.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file) return errno;
    const auto size = static_cast<off_t>(bytes.size());
    const int room = size > 0 ? posix_fallocate(file.get(), 0, size) : 0;
    if (room == ENOSPC || room == EDQUOT || room == EFBIG) return room;
    if (const int error = writeAll(file.get(), bytes)) return error;
    if (ftruncate(file.get(), size) != 0) return errno;
    if (durability == Durability::onDisk && fsync(file.get()) != 0) return errno;
    return file.reset() ? 0 : errno;
}

RunTimeError errorOfWriting(int error, std::string_view path) {
    return RunTimeError(errorNumberOf(error, FileUse::writing), std::string(path)).ofWriting();
}

}  // namespace brasquelin
