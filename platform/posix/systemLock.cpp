#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <utility>

#include "platform/systemLock.h"

namespace brasquelin {

namespace {

int lockedDirectory = -1;

}  // namespace

/// The directory itself is locked, so that no file of the lock lies about.
bool tryLockDirectory(const std::string& directory) {
    const int opened = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0) return true;
    if (flock(opened, LOCK_EX | LOCK_NB) == 0) {
        lockedDirectory = opened;
        return true;
    }
    const bool busy = errno == EWOULDBLOCK || errno == EINTR;
    close(opened);
    return !busy;
}

void unlockDirectory() {
    const int opened = std::exchange(lockedDirectory, -1);
    if (opened >= 0) close(opened);
}

void setEnvironmentOfChildren(const char* name, const std::string& value) {
    if (value.empty()) {
        unsetenv(name);
    } else {
        setenv(name, value.c_str(), 1);
    }
}

}  // namespace brasquelin
