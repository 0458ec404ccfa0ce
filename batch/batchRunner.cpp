#include "batch/batchRunner.h"

#include <random>
#include <utility>

#include "batch/jobFile.h"
#include "batch/jobLog.h"
#include "platform/clock.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

constexpr std::int64_t syncInterval = 1000;  // milliseconds
constexpr int terminationSignal = 15;

std::string newToken() {
    constexpr std::string_view digits = "0123456789abcdef";
    constexpr int length = 32;
    std::random_device random;
    std::string token;
    for (int i = 0; i < length; ++i) token += digits[random() % digits.size()];
    return token;
}

std::vector<ShellLine> linesOf(const RunPlan& plan) {
    std::vector<ShellLine> lines;
    std::size_t next = 1;
    for (const std::size_t job : plan.chosen) {
        for (; next < job; ++next) {
            const std::string& leftOut = plan.jobs[next - 1];
            if (onlyPreparesShell(leftOut)) lines.push_back({0, leftOut});
        }
        lines.push_back({job, plan.jobs[job - 1]});
        next = job + 1;
    }
    return lines;
}

}  // namespace

BatchRunner::BatchRunner(RunPlan plan, RunSinks sinks, const ShellStarter& start)
    : plan_(std::move(plan)), sinks_(std::move(sinks)), marks_({}) {
    if (!plan_.fresh) mendLog(plan_.files, plan_.jobs);
    log_ = openForAppending(plan_.files.log, plan_.fresh);
    output_ = openForAppending(plan_.files.output, plan_.fresh);
    if (plan_.fresh) log_->append(jobLogHeader);
    outputSize_ = output_->size();
    const std::string token = newToken();
    marks_ = OutputMarks(endMark(token));
    prepareShellFiles(plan_.files, linesOf(plan_), token, log_->size());
    shell_ = start(plan_.files.shell, plan_.batchFile);
    begin();
    flush();
}

/// Jobs that end faster than anybody can look at are told together: to wake up for each would slow them down.
void BatchRunner::gatherEnds() {
    constexpr std::int64_t span = 10;  // milliseconds
    constexpr std::size_t many = 50;
    const std::int64_t now = wallClock();
    if (now - gatheredFrom_ >= span) {
        quick_ = now - gatheredFrom_ < 2 * span && ended_ - endedBefore_ > many;
        gatheredFrom_ = now;
        endedBefore_ = ended_;
    }
    if (quick_) clockInUse().sleep(span / 2);
}

bool BatchRunner::step(std::uint32_t milliseconds) {
    gatherEnds();
    std::string bytes;
    const bool alive = shell_->read(bytes, milliseconds);
    marks_.take(
        bytes, [this](std::string_view text) { takeOutput(text); }, [this](const EndMark& mark) { takeEnd(mark); });
    if (!alive) finish();
    flush();
    return alive;
}

void BatchRunner::stopAfterJob() {
    stopped_ = true;
    setSign(plan_.files.shell.stop, true);
}

void BatchRunner::stopNow() {
    endedByUs_ = true;
    stopAfterJob();
    shell_->end();
}

void BatchRunner::stopAtFailure(bool wanted) {
    setSign(plan_.files.shell.stopAtFailure, wanted);
}

void BatchRunner::takeOutput(std::string_view text) {
    newOutput_.append(text);
    outputSize_ += text.size();
}

/// A line may lead the shell past others, which are left out then. One that is joined to the next (Windows) ends with
/// it.
void BatchRunner::takeEnd(const EndMark& mark) {
    if (!running_) return;
    const bool joined = plan_.chosen[position_] != mark.number;
    end(mark.status, 0);
    if (joined) {
        while (position_ < plan_.chosen.size() && plan_.chosen[position_] < mark.number) ++position_;
        begin();
        if (running_) end(mark.status, 0);
    }
    if (!mark.last) begin();
}

void BatchRunner::begin() {
    if (position_ >= plan_.chosen.size()) return;
    const std::size_t job = plan_.chosen[position_];
    takeOutput(plan_.jobs[job - 1] + '\n');
    running_ = true;
    startTime_ = wallClock();
    startSize_ = outputSize_;
    tell({.kind = RunMessageKind::started, .job = job, .time = startTime_, .output = outputSize_});
}

void BatchRunner::end(int exitCode, int signal) {
    const std::size_t job = plan_.chosen[position_];
    const std::int64_t duration = std::max<std::int64_t>(wallClock() - startTime_, 0);
    const JobLogEntry entry{
        job, startTime_, duration, outputSize_ - startSize_, exitCode, signal, jobText(plan_.jobs[job - 1])};
    newLog_ += encode(entry);
    running_ = false;
    ++position_;
    ++ended_;
    if (!entry.endedWell()) ++failed_;
    tell({.kind = RunMessageKind::ended,
          .job = job,
          .time = startTime_,
          .duration = duration,
          .output = outputSize_,
          .exitCode = exitCode,
          .signal = signal});
}

/// A shell that ended in the midst of the last job has left nothing out.
RunOutcome BatchRunner::outcomeOf(bool cutShort) const {
    if (cutShort && endedByUs_) return RunOutcome::stopped;
    if (position_ >= plan_.chosen.size()) return RunOutcome::complete;
    if (stopped_) return RunOutcome::stopped;
    return cutShort ? RunOutcome::shellEnded : RunOutcome::firstFailure;
}

void BatchRunner::finish() {
    takeOutput(marks_.rest());
    const bool cutShort = running_;
    if (cutShort) {
        const ProcessEnd shell = endedByUs_ ? ProcessEnd{0, terminationSignal} : shell_->ended();
        end(shell.exitCode, shell.signal);
    }
    outcome_ = outcomeOf(cutShort);
    flush();
    if (!endedByUs_) shell_->leave(plan_.files.output);
    releaseRunFiles(plan_.files);
    tell({.kind = RunMessageKind::finished, .text = std::string(nameOf(outcome_))});
}

/// The log comes last: whoever reads it finds the output, too.
void BatchRunner::flush() {
    if (!newOutput_.empty() && sinks_.output) sinks_.output(newOutput_);
    writeTo(output_, newOutput_);
    const bool ended = !newLog_.empty();
    writeTo(log_, newLog_);
    const std::int64_t now = wallClock();
    if (!ended || !log_ || now - lastSync_ < syncInterval) return;
    lastSync_ = now;
    log_->sync();
}

/// Jobs go on when their traces cannot be kept.
void BatchRunner::writeTo(std::unique_ptr<AppendFile>& file, std::string& bytes) {
    const std::string taken = std::exchange(bytes, {});
    if (!file || taken.empty()) return;
    try {
        file->append(taken);
    } catch (const RunTimeError& error) {
        file.reset();
        tell({.kind = RunMessageKind::trouble, .text = error.reportWhileLoading(error.path())});
    }
}

void BatchRunner::tell(const RunMessage& message) {
    if (sinks_.tell) sinks_.tell(message);
}

}  // namespace brasquelin
