#include <sys/inotify.h>
#include <unistd.h>

#include "platform/fileOpenWatch.h"
#include "platform/paths.h"

namespace brasquelin {

FileOpenWatch::FileOpenWatch(std::string_view path) : watch_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
    if (watch_ < 0 || inotify_add_watch(watch_, resolvePath(path).c_str(), IN_OPEN) >= 0) return;
    close(watch_);
    watch_ = -1;
}

FileOpenWatch::~FileOpenWatch() {
    if (watch_ >= 0) close(watch_);
}

bool FileOpenWatch::canTell() const {
    return opened_ || watch_ >= 0;
}

bool FileOpenWatch::wasOpened() {
    alignas(inotify_event) char events[4096];
    if (watch_ < 0 || read(watch_, events, sizeof events) <= 0) return opened_;
    close(watch_);  // the system has only so many
    watch_ = -1;
    return opened_ = true;
}

}  // namespace brasquelin
