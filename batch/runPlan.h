// A whole run from its plan to the exit status, with a window or on the console.
#pragma once

#include "batch/batchRunner.h"
#include "batch/wireLink.h"

namespace brasquelin {

/// The exit status of a run that was stopped, by the user or by TERM, INT or HUP.
inline constexpr int stoppedStatus = 126;

/// Runs the jobs and copies what they print to standard output. A window is told of everything and obeyed; without one
/// a summary goes to standard error. Gives the exit status: the number of jobs that failed, at most 100, or
/// `stoppedStatus`. Raises as BatchRunner.
int runPlan(RunPlan plan, WireLink* window);

}  // namespace brasquelin
