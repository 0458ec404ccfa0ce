#include "platform/fileOpenWatch.h"

namespace brasquelin {

// The command interpreter opens a batch file again for each line, so nothing is watched.
struct FileOpenWatch::System {};

FileOpenWatch::FileOpenWatch(std::string_view /*path*/) {}

FileOpenWatch::~FileOpenWatch() = default;

bool FileOpenWatch::canTell() const {
    return system_ != nullptr;
}

bool FileOpenWatch::wasOpened() {
    return opened_;
}

}  // namespace brasquelin
