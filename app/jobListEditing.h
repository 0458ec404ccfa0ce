// What a user does to the job list by hand, each step of which can be taken back.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "text/lineChange.h"
#include "text/undoHistory.h"

namespace brasquelin {

/// Numbers of jobs, sorted.
using Jobs = std::vector<std::size_t>;

struct JobStep {
    std::string_view name;  // as its command is called
    LineChange change;
    Jobs selectedBefore;
    Jobs selectedAfter;
};

/// A state that counts as saved is none that someone worked on: an empty list, or one that came from profiles alone.
extern UndoHistory<JobStep> jobHistory;

/// The list holds lines that someone put, changed or arranged by hand.
bool jobListIsWork();

// Each of these gives the jobs to be selected then. Jobs that profiles append are no steps: they stay, whatever is
// taken back or made again. The given jobs exist.

Jobs removeJobs(const Jobs& selected, std::string_view name = "Delete");
/// Copies behind the last of them.
Jobs duplicateJobs(const Jobs& selected);
/// Every one by a line; none of them may be at that end already.
Jobs moveJobsUp(const Jobs& selected);
Jobs moveJobsDown(const Jobs& selected);
/// Together in front of a job, or to the end.
Jobs moveJobs(const Jobs& selected, std::size_t before);
Jobs insertJobs(std::size_t before, std::vector<std::string> lines, std::string_view name,
                const Jobs& selectedBefore = {});
Jobs changeJob(std::size_t job, std::string line);
void clearJobs();

/// Only where the history has such a step.
Jobs undoJobStep();
Jobs redoJobStep();

/// The lines that are not blank.
std::vector<std::string> withoutBlank(std::vector<std::string> lines);
/// The jobs of a text: its lines but those that are blank.
std::vector<std::string> jobsOfText(std::string_view text);
/// The opposite: each job on a line.
std::string textOfJobs(const Jobs& jobs);

}  // namespace brasquelin
