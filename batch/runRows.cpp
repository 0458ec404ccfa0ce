#include "batch/runRows.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/clock.h"

namespace brasquelin {

namespace {

constexpr std::int64_t longestDuration = (std::int64_t(1) << 39U) - 1;  // 17 years
constexpr int mostSignal = 0x7f;

}  // namespace

void RunRows::take(const RunMessage& message) {
    ++revision_;
    switch (message.kind) {
        case RunMessageKind::title:
        case RunMessageKind::batchFile:
        case RunMessageKind::logFile:
        case RunMessageKind::outputFile:
            about_[static_cast<std::size_t>(message.kind)].text = message.text;
            return;
        case RunMessageKind::job:
            if (phase_ == RunPhase::reading) addJob(message.text);
            return;
        case RunMessageKind::earlierEnd:
            return takeEnd(message);
        case RunMessageKind::ready:  // what an earlier run has ended well stays so
            for (RunRow& row : rows_) {
                if (row.state != JobState::done) waitAgain(row);
            }
            return beginRun();
        case RunMessageKind::mayResume:
            phase_ = RunPhase::asking;
            return;
        case RunMessageKind::started:
            return takeStart(message);
        case RunMessageKind::ended:
            return takeEnd(message);
        case RunMessageKind::finished:
            outcome_ = runOutcomeOf(message.text);
            return endRun(RunPhase::ended);
        default:
            return;
    }
}

void RunRows::addJob(std::string_view line) {
    const std::string_view kept = lines_.add(line);
    rows_.push_back({kept.data(), static_cast<std::uint32_t>(kept.size())});
    ++counts_.waiting;
    if (longest_ == 0 || line.size() > row(longest_).lineSize) longest_ = rows_.size();
}

void RunRows::takeStart(const RunMessage& message) {
    if (message.job == 0 || message.job > rows_.size()) return;
    const std::uint64_t now = clockInUse().tickCount();
    RunRow& row = rows_[message.job - 1];
    row.start = message.time;
    row.duration = 0;
    row.outputBegin = message.output;
    row.hasOutput = true;
    setState(row, JobState::running);
    if (!runBegin_) runBegin_ = now;
    runningSince_ = now;
    running_ = lastStarted_ = message.job;
}

void RunRows::takeEnd(const RunMessage& message) {
    if (message.job == 0 || message.job > rows_.size()) return;
    RunRow& row = rows_[message.job - 1];
    row.start = message.time;
    row.duration = std::max<std::int64_t>(message.duration, 0) & longestDuration;
    row.exitCode = message.exitCode;
    row.signal = message.signal & mostSignal;
    row.outputEnd = message.output;
    setState(row, message.exitCode == 0 && message.signal == 0 ? JobState::done : JobState::failed);
    if (running_ == message.job) running_ = 0;
    if (message.kind == RunMessageKind::ended) ++endedInRun_;
}

void RunRows::runnerGone() {
    if (phase_ != RunPhase::ended) endRun(RunPhase::lost);
}

void RunRows::endRun(RunPhase phase) {
    ++revision_;
    phase_ = phase;
    runEnd_ = clockInUse().tickCount();
    running_ = 0;
    for (RunRow& row : rows_) {
        if (row.state == JobState::waiting) setState(row, JobState::leftOut);
        if (row.state == JobState::running) setState(row, JobState::brokenOff);
    }
}

void RunRows::waitAgain(RunRow& row) {
    setState(row, JobState::waiting);
    row.start = 0;
    row.hasOutput = false;
}

void RunRows::beginRun() {
    phase_ = RunPhase::running;
    endedInRun_ = 0;
    runBegin_.reset();
    lastStarted_ = 0;
}

RunMessage RunRows::runJobs(const std::vector<std::size_t>& jobs) {
    ++revision_;
    for (RunRow& row : rows_) {
        if (row.state == JobState::waiting) setState(row, JobState::leftOut);
    }
    for (const std::size_t job : jobs) waitAgain(rows_[job - 1]);
    beginRun();
    RunMessage message{RunMessageKind::runJobs};
    message.text = jobRanges(jobs);
    return message;
}

void RunRows::tellAboutRun(const std::function<void(const RunMessage&)>& tell) const {
    std::for_each(std::begin(about_), std::end(about_), tell);
    RunMessage job{RunMessageKind::job};
    for (const RunRow& row : rows_) {
        job.text = row.line();
        tell(job);
    }
}

std::int64_t RunRows::durationOf(std::size_t job) const {
    if (job != running_) return row(job).duration;
    return static_cast<std::int64_t>(clockInUse().tickCount() - runningSince_);
}

std::optional<std::size_t> RunRows::runningJob() const {
    return running_ > 0 ? std::optional(running_) : std::nullopt;
}

std::optional<std::size_t> RunRows::lastStarted() const {
    return lastStarted_ > 0 ? std::optional(lastStarted_) : std::nullopt;
}

std::optional<std::size_t> RunRows::longestLine() const {
    return longest_ > 0 ? std::optional(longest_) : std::nullopt;
}

double RunRows::fractionDone() const {
    return rows_.empty() ? 0 : static_cast<double>(counts_.over()) / static_cast<double>(rows_.size());
}

std::uint64_t RunRows::elapsed() const {
    if (!runBegin_) return 0;
    return (phase_ == RunPhase::running ? clockInUse().tickCount() : runEnd_) - *runBegin_;
}

/// From the jobs' average so far, less what the running one has had of its own; one that takes long counts in it.
std::optional<std::uint64_t> RunRows::timeLeft() const {
    if (phase_ != RunPhase::running || endedInRun_ == 0) return std::nullopt;
    const std::uint64_t current = running_ > 0 ? clockInUse().tickCount() - runningSince_ : 0;
    const std::uint64_t average = std::max((elapsed() - current) / endedInRun_, elapsed() / (endedInRun_ + 1));
    return counts_.waiting * average + (counts_.running > 0 && average > current ? average - current : 0);
}

std::optional<double> RunRows::jobsAMinute() const {
    const std::uint64_t time = elapsed();
    if (time == 0 || endedInRun_ == 0) return std::nullopt;
    return static_cast<double>(endedInRun_) * 60'000 / static_cast<double>(time);
}

template <typename Condition>
std::vector<std::size_t> RunRows::jobsWith(Condition condition) const {
    std::vector<std::size_t> jobs;
    for (std::size_t job = 1; job <= rows_.size(); ++job) {
        if (condition(row(job))) jobs.push_back(job);
    }
    return jobs;
}

std::vector<std::size_t> RunRows::failedJobs() const {
    return jobsWith(
        [](const RunRow& row) { return row.state == JobState::failed || row.state == JobState::brokenOff; });
}

std::vector<std::size_t> RunRows::openJobs() const {
    return jobsWith([](const RunRow& row) { return row.state != JobState::done; });
}

std::vector<std::size_t> RunRows::jobsFrom(std::size_t job) const {
    std::vector<std::size_t> jobs;
    for (; job <= rows_.size(); ++job) jobs.push_back(job);
    return jobs;
}

void RunRows::setState(RunRow& row, JobState state) {
    --countOf(row.state);
    row.state = state;
    ++countOf(state);
}

std::size_t& RunRows::countOf(JobState state) {
    switch (state) {
        case JobState::waiting:
            return counts_.waiting;
        case JobState::running:
            return counts_.running;
        case JobState::done:
            return counts_.done;
        case JobState::leftOut:
            return counts_.leftOut;
        default:
            return counts_.failed;
    }
}

}  // namespace brasquelin
