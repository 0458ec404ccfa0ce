#include "platform/posix/descendants.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <string>

namespace brasquelin {

namespace {

pid_t spared = 0;

/// "id (name) state parent ...": the name may hold anything.
std::optional<pid_t> parentOf(const std::filesystem::path& process) {
    std::ifstream file(process / "stat");
    std::string text;
    std::getline(file, text, '\0');
    const auto nameEnd = text.rfind(") ");
    if (nameEnd == std::string::npos || nameEnd + 4 >= text.size()) return std::nullopt;
    pid_t parent = 0;
    std::from_chars(text.data() + nameEnd + 4, text.data() + text.size(), parent);
    return parent;
}

std::multimap<pid_t, pid_t> childrenOfAll() {
    std::multimap<pid_t, pid_t> children;
    std::error_code error;
    std::filesystem::directory_iterator at("/proc", error);
    for (; !error && at != std::filesystem::directory_iterator(); at.increment(error)) {
        const std::string name = at->path().filename().string();
        pid_t process = 0;
        if (std::from_chars(name.data(), name.data() + name.size(), process).ec != std::errc()) continue;
        if (const auto parent = parentOf(at->path())) children.emplace(*parent, process);
    }
    return children;
}

}  // namespace

void adoptOrphans() {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
}

void spare(pid_t child) {
    spared = child;
}

std::vector<pid_t> descendants() {
    const auto children = childrenOfAll();
    std::vector<pid_t> found{getpid()};
    for (std::size_t i = 0; i < found.size(); ++i) {
        const auto [begin, end] = children.equal_range(found[i]);
        std::for_each(begin, end, [&](const auto& pair) {
            if (pair.second != spared) found.push_back(pair.second);
        });
    }
    found.erase(found.begin());
    return found;
}

}  // namespace brasquelin
