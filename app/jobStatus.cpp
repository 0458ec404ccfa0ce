#include "app/jobStatus.h"

#include <cstdint>
#include <utility>

#include "app/batchFile.h"
#include "app/jobList.h"
#include "app/openFile.h"
#include "text/substitution.h"

namespace brasquelin {

namespace {

struct Note {
    std::string text;
    std::uint64_t revision = 0;  // of the list that it is about
};
Note note;

}  // namespace

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
    return note.revision == jobList.revision() ? note.text : "";
}

void noteJobs(std::string text) {
    note = {std::move(text), jobList.revision()};
}

}  // namespace brasquelin
