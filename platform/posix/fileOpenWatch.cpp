#include "platform/fileOpenWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include "platform/paths.h"

namespace brasquelin {

/// Closes what it holds.
struct FileOpenWatch::System {
    explicit System(int watch) : descriptor(watch) {}
    ~System() { close(descriptor); }
    System(const System&) = delete;
    System& operator=(const System&) = delete;
    int descriptor;
};

FileOpenWatch::FileOpenWatch(std::string_view path) {
    const int watch = inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
    if (watch < 0) return;
    system_ = std::make_unique<System>(watch);
    if (inotify_add_watch(watch, resolvePath(path).c_str(), IN_OPEN) < 0) system_.reset();
}

FileOpenWatch::~FileOpenWatch() = default;

bool FileOpenWatch::canTell() const {
    return opened_ || system_;
}

bool FileOpenWatch::wasOpened() {
    alignas(inotify_event) char events[4096];
    if (!system_ || read(system_->descriptor, events, sizeof events) <= 0) return opened_;
    system_.reset();  // the system has only so many
    return opened_ = true;
}

}  // namespace brasquelin
