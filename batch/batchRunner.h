// Runs jobs one after another in one shell, writes log and output, and tells what happens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "batch/outputMarks.h"
#include "batch/runFiles.h"
#include "batch/runMessages.h"
#include "platform/appendFile.h"
#include "platform/jobShell.h"

namespace brasquelin {

/// What is to be run.
struct RunPlan {
    std::string batchFile;
    std::vector<std::string> jobs;    // the whole list, see batch/jobFile.h
    std::vector<std::size_t> chosen;  // the jobs to be run, from 1, rising
    RunFiles files;
    bool fresh = true;  // begins log and output anew
};

/// Where a run goes besides its files.
struct RunSinks {
    std::function<void(const RunMessage&)> tell;
    std::function<void(std::string_view)> output;  // what the lines print, each line in front of its output
};

using ShellStarter = std::function<std::unique_ptr<JobShell>(const ShellFiles&, const std::string& batchFile)>;

class BatchRunner {
  public:
    /// Starts the shell. Lines in front of the chosen ones that only prepare the shell are run, too, untold. Raises
    /// the error of writing the log, the output or the script, and that of starting.
    BatchRunner(RunPlan plan, RunSinks sinks, const ShellStarter& start = startJobShell);

    /// Waits for something to happen, for up to `milliseconds`. False when the run is over.
    bool step(std::uint32_t milliseconds);

    /// No further job is begun behind the one that runs.
    void stopAfterJob();
    /// Ends what runs, with all that it has started.
    void stopNow();
    /// Whether the run ends with the first job that fails.
    void stopAtFailure(bool wanted);

    RunOutcome outcome() const { return outcome_; }
    std::size_t failed() const { return failed_; }
    std::size_t ended() const { return ended_; }

  private:
    void gatherEnds();
    void takeOutput(std::string_view text);
    void takeEnd(const EndMark& mark);
    void begin();
    void end(int exitCode, int signal);
    RunOutcome outcomeOf(bool cutShort) const;
    void finish();
    void flush();
    void writeTo(std::unique_ptr<AppendFile>& file, std::string& bytes);
    void tell(const RunMessage& message);

    RunPlan plan_;
    RunSinks sinks_;
    std::unique_ptr<AppendFile> log_;
    std::unique_ptr<AppendFile> output_;
    OutputMarks marks_;
    std::unique_ptr<JobShell> shell_;

    std::size_t position_ = 0;  // in the chosen jobs
    bool running_ = false;      // the job there
    std::int64_t startTime_ = 0;
    std::uint64_t startSize_ = 0;   // of the output
    std::uint64_t outputSize_ = 0;  // with what is not written yet
    std::string newOutput_;
    std::string newLog_;
    std::int64_t lastSync_ = 0;
    std::int64_t gatheredFrom_ = 0;
    std::size_t endedBefore_ = 0;
    bool quick_ = false;
    bool stopped_ = false;    // the user has asked for it
    bool endedByUs_ = false;  // at once
    std::size_t failed_ = 0;
    std::size_t ended_ = 0;
    RunOutcome outcome_ = RunOutcome::complete;
};

}  // namespace brasquelin
