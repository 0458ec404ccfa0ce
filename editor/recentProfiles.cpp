#include "editor/recentProfiles.h"

#include <algorithm>

#include "platform/preferences.h"
#include "text/runTimeError.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::string_view key = "RecentProfiles";
constexpr std::string_view separator = "|";  // is in no file name on Windows, and hardly in any on Linux
constexpr std::size_t most = 9;

}  // namespace

std::vector<std::string> recentProfiles() {
    std::vector<std::string> paths;
    const std::string value = preference(preferencesFile(), key);
    for (const auto path : split(value, separator)) {
        if (!path.empty()) paths.emplace_back(path);
    }
    return paths;
}

void noteRecentProfile(const std::string& path) {
    std::vector<std::string> paths = recentProfiles();
    if (path.find(separator) != std::string::npos || (!paths.empty() && paths.front() == path)) return;
    std::erase(paths, path);
    paths.insert(paths.begin(), path);
    paths.resize(std::min(paths.size(), most));
    std::string text;
    for (const auto& each : paths) text.append(text.empty() ? "" : separator).append(each);
    try {
        setPreference(preferencesFile(), key, text);
    } catch (const RunTimeError&) {
        return;
    }
}

}  // namespace brasquelin
