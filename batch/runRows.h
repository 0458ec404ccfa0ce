// The jobs of a run as the window shows them, kept current by what the runner tells.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/runMessages.h"
#include "text/lineStore.h"

namespace brasquelin {

/// `brokenOff`: the run ended without a word about the job's end. `leftOut`: not asked for, or the run ended before it.
enum class JobState : std::uint8_t { waiting, running, done, failed, brokenOff, leftOut };

/// There may be a million: each byte counts.
struct RunRow {
    std::string_view line() const { return {lineBegin, lineSize}; }

    const char* lineBegin = nullptr;
    std::uint32_t lineSize = 0;
    std::int32_t exitCode = 0;
    std::int64_t start = 0;  // milliseconds since 1970; 0: has not been started
    std::uint64_t outputBegin = 0;
    std::uint64_t outputEnd = 0;     // known when the job has ended
    std::int64_t duration : 40 = 0;  // milliseconds; of a running job see RunRows::durationOf
    std::int64_t signal : 8 = 0;
    JobState state = JobState::waiting;
    bool hasOutput = false;  // where it is in the output file is known
};

enum class RunPhase {
    reading,  // the jobs come
    asking,   // an earlier run was not finished, and the user has to say what is to be done
    running,
    ended,
    lost,  // the runner is gone without a word
};

struct JobCounts {
    std::size_t waiting = 0;
    std::size_t running = 0;
    std::size_t done = 0;
    std::size_t failed = 0;  // broken off ones included
    std::size_t leftOut = 0;

    std::size_t over() const { return done + failed; }
};

class RunRows {
  public:
    /// `trouble` is not for this.
    void take(const RunMessage& message);
    /// The link has closed. Before `finished` that breaks off what is running.
    void runnerGone();

    std::size_t size() const { return rows_.size(); }
    /// Jobs count from 1.
    const RunRow& row(std::size_t job) const { return rows_[job - 1]; }
    std::int64_t durationOf(std::size_t job) const;
    const JobCounts& counts() const { return counts_; }
    RunPhase phase() const { return phase_; }
    RunOutcome outcome() const { return outcome_; }
    bool isRunning() const { return phase_ == RunPhase::reading || phase_ == RunPhase::running; }
    std::optional<std::size_t> runningJob() const;
    /// In this run; it may have ended.
    std::optional<std::size_t> lastStarted() const;
    /// The job whose line has the most bytes, for the width of the column.
    std::optional<std::size_t> longestLine() const;

    const std::string& title() const { return about_[0].text; }
    const std::string& batchFile() const { return about_[1].text; }
    const std::string& logFile() const { return about_[2].text; }
    const std::string& outputFile() const { return about_[3].text; }

    /// From 0 to 1.
    double fractionDone() const;
    /// Milliseconds that this run has taken, and is still to take as far as can be told.
    std::uint64_t elapsed() const;
    std::optional<std::uint64_t> timeLeft() const;
    std::optional<double> jobsAMinute() const;

    /// All rising.
    std::vector<std::size_t> failedJobs() const;
    /// Those that have not ended well.
    std::vector<std::size_t> openJobs() const;
    std::vector<std::size_t> jobsFrom(std::size_t job) const;

    /// These jobs wait again and the run goes on with them; others that waited are left out. Gives the message that
    /// tells the runner.
    RunMessage runJobs(const std::vector<std::size_t>& jobs);
    /// What a new runner has to know before that, one message after the other.
    void tellAboutRun(const std::function<void(const RunMessage&)>& tell) const;

    /// Grows with every change.
    std::uint64_t revision() const { return revision_; }

  private:
    void addJob(std::string_view line);
    void waitAgain(RunRow& row);
    void takeStart(const RunMessage& message);
    void takeEnd(const RunMessage& message);
    void beginRun();
    void endRun(RunPhase phase);
    void setState(RunRow& row, JobState state);
    std::size_t& countOf(JobState state);
    template <typename Condition>
    std::vector<std::size_t> jobsWith(Condition condition) const;

    RunMessage about_[4] = {
        {RunMessageKind::title}, {RunMessageKind::batchFile}, {RunMessageKind::logFile}, {RunMessageKind::outputFile}};
    LineStore lines_;
    std::deque<RunRow> rows_;  // never copied to grow
    JobCounts counts_;
    RunPhase phase_ = RunPhase::reading;
    RunOutcome outcome_ = RunOutcome::complete;
    std::size_t running_ = 0;      // 0: none
    std::size_t lastStarted_ = 0;  // likewise
    std::size_t longest_ = 0;
    std::size_t endedInRun_ = 0;
    std::optional<std::uint64_t> runBegin_;  // ticks
    std::uint64_t runEnd_ = 0;
    std::uint64_t runningSince_ = 0;
    std::uint64_t revision_ = 0;
};

}  // namespace brasquelin
