#include "platform/fileOpenWatch.h"

namespace brasquelin {

// The command interpreter opens a batch file again for each line.
FileOpenWatch::FileOpenWatch(std::string_view /*path*/) {}

FileOpenWatch::~FileOpenWatch() = default;

bool FileOpenWatch::canTell() const {
    return watch_ >= 0;
}

bool FileOpenWatch::wasOpened() {
    return opened_;
}

}  // namespace brasquelin
