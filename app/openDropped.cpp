#include "app/openDropped.h"

#include "app/openFile.h"
#include "text/fileFormat.h"

namespace brasquelin {

void openDropped(const std::vector<std::string>& paths) {
    for (const auto& path : paths) {
        const FileKind kind = kindOfFile(path);
        if (kind != FileKind::profile && kind != FileKind::library) continue;
        if (!openPicked(path)) return;
    }
}

}  // namespace brasquelin
