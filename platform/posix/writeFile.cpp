#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/endingSignals.h"
#include "platform/posix/systemError.h"
#include "platform/textFiles.h"
#include "text/substitution.h"

namespace brasquelin {

namespace {

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
    struct stat status {};
    const bool exists = stat(target.c_str(), &status) == 0;
    // Nothing can be moved over a directory, nor over a device or pipe, which nobody may be reading.
    if (exists && !S_ISREG(status.st_mode)) raise(EISDIR, FileUse::writing, path);
    if (exists && access(target.c_str(), W_OK) != 0) raise(errno, FileUse::writing, path);
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

}  // namespace

void writeFile(std::string_view path, std::string_view bytes) {
    replaceFile(path, bytes, false);
}

void saveFile(std::string_view path, std::string_view bytes) {
    replaceFile(path, bytes, true);
}

}  // namespace brasquelin
