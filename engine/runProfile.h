// The interpreter of profiles.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace brasquelin {

/// Takes the finished lines.
using JobSink = std::function<void(std::string_view line)>;
/// Gives the one before.
JobSink setJobSink(JobSink sink);
/// Hands a finished line to the sink.
void appendJob(std::string_view line);

/// Interprets a profile at a level; nested profiles run at the next one. False when a run-time error stopped the run;
/// it has been reported then, and the lines handed over so far stay. Ends the program for an unknown name, a bad
/// parameter line, and a check that answers "return" = "false".
bool runProfile(const std::string& path, int level);

/// Runs the library that the user confirmed, with the declarations in `functionVariables`, and hands its line over.
/// False when a run-time error was reported.
bool runLibrary(const std::string& path, const std::vector<std::string>& arguments);

}  // namespace brasquelin
