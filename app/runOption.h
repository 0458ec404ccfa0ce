// The options that run a batch file: in the run window, or on the console where there is no display.
#pragma once

#include <optional>
#include <string_view>

namespace brasquelin {

/// Answers a command line that starts with "--run" and gives the exit status then; nothing for any other.
///
///   --run [TITLE] BATCHFILE   runs the file's jobs one after another in one shell; TITLE is one word
///   --run --resume BATCHFILE  the same for what the job log does not list as ended with 0
///   --run --no-window ...     on the console, also where there is a display
///   --run-line LINE           runs one line
///   --run-jobs END            what a run window asks for (see platform/wire.h)
///
/// Status: the number of jobs that failed, at most 100; 125 when the batch file cannot be read (told on standard
/// error), 126 when the run was stopped, by the user or by TERM, INT or HUP.
std::optional<int> answerRunOption(std::string_view commandLine);

}  // namespace brasquelin
