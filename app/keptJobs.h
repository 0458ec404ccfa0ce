// A job list that someone worked on, kept in a file of the program directory until it is saved, taken back, restored or
// discarded. Lists that came from profiles alone are not kept.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brasquelin {

/// Of the list in the window.
struct KeptJobs {
    std::string file;  // empty while nothing is kept
    std::uint64_t revision = 0;
    bool hasFailed = false;  // which was told
    void reset() { *this = KeptJobs(); }
};
extern KeptJobs keptJobs;

/// Writes the list, or removes its file where there is nothing to be kept. Cheap when it has not changed. A failure is
/// told once.
void keepJobs();
/// The same without any message, for a window that has gone.
void keepJobsSilently() noexcept;
/// The list is gone: what is kept of it is offered from now on.
void leaveKeptJobs();

// What earlier lists have left

struct KeptJobsOffer {
    std::string file;
    std::string text;  // what the user is told
    bool isReadable = true;
};
/// The newest of them.
std::optional<KeptJobsOffer> keptJobsOffer();
/// Appends its jobs to the list, as a step. False for a file that cannot be read, which was reported.
bool restoreKeptJobs(const std::string& file);
void discardKeptJobs(const std::string& file);

}  // namespace brasquelin
