#include "app/openDropped.h"

#include "app/openFile.h"

namespace brasquelin {

void openDropped(const std::vector<std::string>& paths) {
    const bool refused = opening.running;
    for (const auto& path : paths) {
        if (!isOpenable(path)) continue;
        openPicked(path);
        if (refused) return;
    }
}

}  // namespace brasquelin
