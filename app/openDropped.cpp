#include "app/openDropped.h"

#include "app/jobFiles.h"
#include "app/openFile.h"
#include "text/fileFormat.h"

namespace brasquelin {

namespace {

/// False when another file is being run, which was told.
bool open(const std::string& path) {
    const FileKind kind = kindOfFile(path);
    if (kind == FileKind::profile || kind == FileKind::library) return openPicked(path);
    if (kindOfJobFile(path) == JobFileKind::none) return true;
    if (!mayOpen()) return false;
    appendJobFile(path);
    return true;
}

}  // namespace

void openDropped(const std::vector<std::string>& paths) {
    for (const auto& path : paths) {
        if (!open(path)) return;
    }
}

}  // namespace brasquelin
