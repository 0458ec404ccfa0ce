#include "app/openDropped.h"

#include "app/openFile.h"

namespace brasquelin {

void openDropped(const std::vector<std::string>& paths) {
    for (const auto& path : paths) {
        if (!openPicked(path)) return;
    }
}

}  // namespace brasquelin
