#include "batch/runPlan.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "batch/jobFile.h"
#include "platform/clock.h"
#include "platform/interruption.h"
#include "platform/standardStreams.h"

namespace brasquelin {

namespace {

constexpr int mostFailures = 100;
constexpr std::uint32_t pollInterval = 50;  // milliseconds

class Run {
  public:
    Run(RunPlan plan, WireLink* window) : plan_(std::move(plan)), window_(window) {}
    int run();

  private:
    RunSinks sinks();
    void obey(BatchRunner& runner);
    void tellSummary(const BatchRunner& runner, std::int64_t duration) const;

    RunPlan plan_;
    WireLink* window_;
    std::vector<RunMessage> unsent_;
    std::vector<RunMessage> failures_;
};

int Run::run() {
    const std::int64_t begin = wallClock();
    BatchRunner runner(plan_, sinks());
    bool interrupted = false;
    while (runner.step(pollInterval)) {
        if (window_) obey(runner);
        if (interrupted || !wasInterrupted()) continue;
        interrupted = true;
        runner.stopNow();
    }
    if (window_) window_->send(unsent_);
    if (!window_) tellSummary(runner, wallClock() - begin);
    if (runner.outcome() == RunOutcome::stopped) return stoppedStatus;
    return static_cast<int>(std::min<std::size_t>(runner.failed(), mostFailures));
}

RunSinks Run::sinks() {
    RunSinks sinks;
    sinks.output = [](std::string_view bytes) { writeBytes(StandardStream::output, bytes); };
    sinks.tell = [this](const RunMessage& message) {
        if (window_) return unsent_.push_back(message);
        if (message.kind == RunMessageKind::trouble) writeMessage("brasquelin", message.text);
        const bool failed = message.exitCode != 0 || message.signal != 0;
        if (message.kind == RunMessageKind::ended && failed) failures_.push_back(message);
    };
    return sinks;
}

void Run::obey(BatchRunner& runner) {
    window_->send(std::exchange(unsent_, {}));
    for (const auto& command : window_->receive()) {
        if (command.kind == RunMessageKind::stopAfterJob) runner.stopAfterJob();
        if (command.kind == RunMessageKind::stopNow) runner.stopNow();
        if (command.kind == RunMessageKind::stopAtFailure) runner.stopAtFailure(command.job != 0);
    }
}

std::string inSeconds(std::int64_t milliseconds) {
    constexpr std::int64_t second = 1000;
    constexpr std::int64_t tenth = 100;
    return std::to_string(milliseconds / second) + '.' + std::to_string(milliseconds % second / tenth) + " s";
}

void Run::tellSummary(const BatchRunner& runner, std::int64_t duration) const {
    constexpr std::size_t mostNamed = 20;
    std::string text = "brasquelin: " + std::to_string(runner.ended()) + " of " + std::to_string(plan_.chosen.size()) +
                       " jobs run in " + inSeconds(duration) + ", " + std::to_string(runner.failed()) + " failed";
    if (!plan_.batchFile.empty()) text += "; job log '" + plan_.files.log + "'";
    text += '\n';
    for (std::size_t i = 0; i < std::min(failures_.size(), mostNamed); ++i) {
        const RunMessage& failed = failures_[i];
        const bool bySignal = failed.signal != 0;
        text.append("  job ").append(std::to_string(failed.job)).append(bySignal ? ", signal " : ", exit status ");
        text.append(std::to_string(bySignal ? failed.signal : failed.exitCode)).append(": ");
        text.append(jobText(plan_.jobs[failed.job - 1])).append("\n");
    }
    if (failures_.size() > mostNamed) text += "  and " + std::to_string(failures_.size() - mostNamed) + " more\n";
    writeTo(StandardStream::error, text);
}

}  // namespace

int runPlan(RunPlan plan, WireLink* window) {
    return Run(std::move(plan), window).run();
}

}  // namespace brasquelin
