// What the runner of a batch file and the window that shows it tell each other. They are two processes, so that the
// jobs go on when the window is gone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

enum class RunMessageKind {
    // About a run, from whoever has read the batch file, in this order.
    title,       // text
    batchFile,   // text: the path
    logFile,     // text: the path
    outputFile,  // text: the path; all that the jobs print, one run behind the other
    job,         // text: the next job's line; jobs count from 1, remark lines and empty ones are none
    earlierEnd,  // job, time, duration, exitCode, signal: what the job log of an earlier run of this list says
    ready,       // the jobs are complete and will begin by themselves
    mayResume,   // instead: an earlier run was not finished, and nothing begins until `runJobs` has come
    // From the runner, as it happens.
    started,   // job, time, output
    ended,     // job, time, duration, exitCode, signal, output
    finished,  // text: how it ended, see RunOutcome
    trouble,   // text: what the user should know, such as a log that cannot be written
    // To the runner.
    runJobs,  // text: which jobs, such as "1-5,9"; begins the run
    stopAfterJob,
    stopNow,
    stopAtFailure,  // job: 1 on, 0 off
};

struct RunMessage {
    RunMessageKind kind = RunMessageKind::trouble;
    std::size_t job = 0;        // from 1
    std::int64_t time = 0;      // milliseconds since 1970
    std::int64_t duration = 0;  // milliseconds
    std::uint64_t output = 0;   // size of the output file at that moment, in bytes
    int exitCode = 0;
    int signal = 0;         // that ended it; 0 for none
    std::string text = {};  // without line breaks

    bool operator==(const RunMessage&) const = default;
};

/// What `finished` says in its text. A run is `complete` also when jobs have failed.
enum class RunOutcome { complete, stopped, firstFailure, shellEnded };
std::string_view nameOf(RunOutcome outcome);
/// Anything unknown is `stopped`.
RunOutcome runOutcomeOf(std::string_view name);

/// One line, its end included.
std::string encode(const RunMessage& message);

/// Cuts messages out of a stream of bytes, which comes in pieces. Lines that are no message are left out.
class RunMessageReader {
  public:
    std::vector<RunMessage> take(std::string_view bytes);

  private:
    std::string rest_;
};

/// Jobs as the text of `runJobs`, rising: "1-5,9". Reading drops what is no number.
std::string jobRanges(const std::vector<std::size_t>& jobs);
std::vector<std::size_t> jobsOfRanges(std::string_view ranges);

/// The window's end of the wire.
class RunLink {
  public:
    virtual ~RunLink() = default;
    /// What has come since the last call; does not wait.
    virtual std::vector<RunMessage> receive() = 0;
    virtual void send(const RunMessage& message) = 0;
    /// False when the runner is gone.
    virtual bool isOpen() const = 0;
};

/// Starts another runner, for a window that wants to run jobs again: it is sent the messages about the run (batch file,
/// log, output, every job of the list), then `runJobs`. Raises the error of starting.
using StartRunner = std::function<std::unique_ptr<RunLink>()>;

}  // namespace brasquelin
