// What has become of a process that the test did not start itself.
#pragma once

#include <sys/types.h>

#include <csignal>
#include <string>

#include "support/becomesTrue.h"
#include "support/scratchDirectory.h"

namespace brasquelin {

/// Waits for its end. True as well for one that whoever inherited it has not collected yet.
inline bool ends(pid_t process) {
    return becomesTrue([process] {
        return kill(process, 0) != 0 ||
               bytesOf("/proc/" + std::to_string(process) + "/stat").find(") Z ") != std::string::npos;
    });
}

}  // namespace brasquelin
