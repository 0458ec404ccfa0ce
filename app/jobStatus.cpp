#include "app/jobStatus.h"

#include "app/batchFile.h"
#include "app/openFile.h"
#include "text/substitution.h"

namespace brasquelin {

std::string jobCountText(std::size_t all, std::size_t shown) {
    const std::string jobs = all == 0 ? "No jobs" : std::to_string(all) + (all == 1 ? " job" : " jobs");
    return shown == all ? jobs : jobs + ", " + std::to_string(shown) + " shown";
}

std::string selectedText(std::size_t selected) {
    return selected == 0 ? "" : std::to_string(selected) + " selected";
}

std::string activityText() {
    if (batchIsStarting()) return "The job list is being started ...";
    if (runState.running) return "'" + fileNameOf(runState.runningFile) + "' is being run ...";
    return {};
}

}  // namespace brasquelin
