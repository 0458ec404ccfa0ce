// The profiles that the editor has opened or saved last, remembered from start to start.
#pragma once

#include <string>
#include <vector>

namespace brasquelin {

/// The newest first, at most nine.
std::vector<std::string> recentProfiles();

/// This one is the newest. That it cannot be written down is no reason to trouble the user.
void noteRecentProfile(const std::string& path);

}  // namespace brasquelin
