// What has become of a process that the test did not start itself.
#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iterator>
#include <string>

namespace brasquelin {

/// True as well for one that whoever inherited it has not collected yet.
inline bool hasEnded(pid_t process) {
    if (kill(process, 0) != 0) return true;
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    const std::string status{std::istreambuf_iterator<char>(file), {}};
    return status.find(") Z ") != std::string::npos;
}

/// Waits for it, ten seconds at most.
inline bool ends(pid_t process) {
    for (int i = 0; i < 5000 && !hasEnded(process); ++i) usleep(2000);
    return hasEnded(process);
}

}  // namespace brasquelin
