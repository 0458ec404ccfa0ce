// The files of a run, beside its batch file: the job log, the output, and a directory that is there while jobs run.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "batch/jobLog.h"
#include "platform/jobShell.h"

namespace brasquelin {

/// For "x.bat": "x.joblog", "x.output" and the directory "x.joblog.run".
struct RunFiles {
    std::string log;
    std::string output;
    std::string directory;
    ShellFiles shell;
};

/// Takes the files of a batch file for this process; where another run of it is at work, those of "x-2.bat" and so on.
/// Where they cannot be written, they lie in the system's directory of temporary files. Raises the error of that.
RunFiles claimRunFiles(const std::string& batchFile);

/// The same for a line that is run alone: all in a directory of temporary files of its own.
RunFiles temporaryRunFiles();

/// Nobody looks at the run of a line any more: its directory goes. Nothing for the log of any other run.
void removeTemporaryRun(const std::string& log);

/// The files that a run has used before; to be called before it goes on. False while another process has them.
bool claimAgain(const std::string& log, const std::string& output, RunFiles& files);

/// What is known of an earlier run of this list, also when that was ended in the midst of its work.
EarlierRun readEarlierRun(const RunFiles& files, const std::vector<std::string>& jobs);

/// Brings the log up to date with an earlier run that was ended in the midst of its work.
void mendLog(const RunFiles& files, const std::vector<std::string>& jobs);

/// Writes script and journal for a run that begins behind `logSize` bytes of the log. Raises the error of writing.
void prepareShellFiles(const RunFiles& files, const std::vector<ShellLine>& lines, const std::string& token,
                       std::uint64_t logSize);

/// A sign for the shell (see ShellFiles). Raises the error of writing.
void setSign(const std::string& path, bool wanted);

/// The run is over: nothing but log and output stays.
void releaseRunFiles(const RunFiles& files);

}  // namespace brasquelin
