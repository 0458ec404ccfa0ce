#include "app/runOption.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "batch/jobFile.h"
#include "batch/runFiles.h"
#include "batch/runPlan.h"
#include "batch/wireLink.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/interruption.h"
#include "platform/paths.h"
#include "platform/standardStreams.h"
#include "platform/windowModule.h"
#include "text/runTimeError.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr int unreadable = 125;
constexpr std::uint32_t pollInterval = 50;  // milliseconds
constexpr std::string_view defaultTitle = "Brasquelin";

/// What the command line asks for.
struct RunRequest {
    std::string title{defaultTitle};
    std::string batchFile;
    bool resume = false;
    bool inWindow = displayAvailable();
};

/// Takes a word and the blanks behind it off the front.
bool takeWord(std::string_view& text, std::string_view word) {
    if (!text.starts_with(word) || (text.size() > word.size() && text[word.size()] != ' ')) return false;
    text.remove_prefix(word.size());
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return true;
}

std::string_view withoutQuotes(std::string_view text) {
    if (text.size() > 1 && text.front() == '"' && text.back() == '"') return text.substr(1, text.size() - 2);
    return text;
}

/// Blanks in the path of the batch file need no quotes, so a first word is only a title when the rest alone is a file.
RunRequest parseRequest(std::string_view text) {
    RunRequest request;
    for (bool option = true; option;) {
        option = takeWord(text, "--resume");
        request.resume = request.resume || option;
        if (!option && takeWord(text, "--no-window")) {
            option = true;
            request.inWindow = false;
        }
    }
    const auto blank = text.find(' ');
    const bool whole = blank == std::string_view::npos || fileExists(withoutQuotes(text));
    if (!whole) {
        request.title = text.substr(0, blank);
        text.remove_prefix(std::min(text.find_first_not_of(' ', blank), text.size()));
    }
    request.batchFile = withoutQuotes(text);
    return request;
}

/// Tells a window of a run before it begins.
void introduce(WireLink& window, const std::string& title, const RunPlan& plan) {
    constexpr std::size_t atOnce = 1000;
    std::vector<RunMessage> messages{{.kind = RunMessageKind::title, .text = title},
                                     {.kind = RunMessageKind::batchFile, .text = plan.batchFile},
                                     {.kind = RunMessageKind::logFile, .text = plan.files.log},
                                     {.kind = RunMessageKind::outputFile, .text = plan.files.output}};
    for (const auto& job : plan.jobs) {
        messages.push_back({.kind = RunMessageKind::job, .text = job});
        if (messages.size() >= atOnce) window.send(std::exchange(messages, {}));
    }
    window.send(messages);
}

void tellEarlier(WireLink& window, const EarlierRun& earlier) {
    std::vector<RunMessage> messages;
    for (const auto& [job, entry] : earlier) {
        messages.push_back({.kind = RunMessageKind::earlierEnd,
                            .job = job,
                            .time = entry.start,
                            .duration = entry.duration,
                            .exitCode = entry.exitCode,
                            .signal = entry.signal});
    }
    window.send(messages);
}

/// What the window has chosen after an earlier run; nothing when it wants none or is gone.
std::vector<std::size_t> awaitChoice(WireLink& window) {
    while (window.isOpen() && !wasInterrupted()) {
        for (const auto& command : window.receive()) {
            if (command.kind == RunMessageKind::runJobs) return jobsOfRanges(command.text);
            if (command.kind == RunMessageKind::stopNow) return {};
        }
        clockInUse().sleep(pollInterval);
    }
    return {};
}

std::vector<std::size_t> allJobs(std::size_t count) {
    return jobsLeft({}, count);
}

/// Nothing when nothing is to be run.
void choose(RunPlan& plan, bool resume, WireLink* window) {
    const EarlierRun earlier = readEarlierRun(plan.files, plan.jobs);
    const std::vector<std::size_t> left = jobsLeft(earlier, plan.jobs.size());
    const bool asks = !resume && window && isUnfinished(earlier, plan.jobs.size());
    if (window && (asks || resume)) tellEarlier(*window, earlier);
    if (window) window->send(RunMessage{.kind = asks ? RunMessageKind::mayResume : RunMessageKind::ready});
    plan.chosen = allJobs(plan.jobs.size());
    if (asks) plan.chosen = awaitChoice(*window);
    if (resume) plan.chosen = left;
    plan.fresh = earlier.empty() || plan.chosen.size() == plan.jobs.size();
}

/// The window, or whoever reads standard error, is told that there is nothing to do.
void tellNothingRun(WireLink* window) {
    const std::string outcome(nameOf(RunOutcome::stopped));
    if (window) window->send(RunMessage{.kind = RunMessageKind::finished, .text = outcome});
    if (window && window->isOpen()) return;
    writeTo(StandardStream::error, "brasquelin: nothing was run; --run --resume goes on where it stopped\n");
}

/// Null where no window can be shown, which is told.
std::unique_ptr<WireLink> startWindow() try {
    return std::make_unique<WireLink>(startPartner(runWindowOption));
} catch (const RunTimeError& error) {
    const std::string reason = whyNoWindows();
    writeMessage(defaultTitle, reason.empty() ? error.report({}) : reason);
    return nullptr;
}

int runJobs(RunPlan plan, const RunRequest& request) {
    std::unique_ptr<WireLink> window;
    if (request.inWindow) window = startWindow();
    if (window) introduce(*window, request.title, plan);
    choose(plan, request.resume, window.get());
    int status = 0;
    if (!plan.chosen.empty()) {
        status = runPlan(std::move(plan), window.get());
    } else {
        releaseRunFiles(plan.files);
        tellNothingRun(window.get());
        if (!request.resume && !plan.jobs.empty()) status = stoppedStatus;
    }
    if (window) window->letGo();
    return status;
}

int runBatchFile(const RunRequest& request) {
    RunPlan plan;
    plan.batchFile = request.batchFile;
    plan.jobs = readJobs(request.batchFile);
    plan.files = claimRunFiles(request.batchFile);
    return runJobs(std::move(plan), request);
}

int runLine(std::string_view line) {
    RunPlan plan;
    plan.jobs = {std::string(line)};
    plan.files = temporaryRunFiles();
    RunRequest request;
    request.title = line;
    const std::string log = plan.files.log;
    const int status = runJobs(std::move(plan), request);
    if (!request.inWindow) removeTemporaryRun(log);
    return status;
}

/// One message of a window's introduction.
void take(const RunMessage& message, RunPlan& plan, RunFiles& named) {
    if (message.kind == RunMessageKind::batchFile) plan.batchFile = message.text;
    if (message.kind == RunMessageKind::logFile) named.log = message.text;
    if (message.kind == RunMessageKind::outputFile) named.output = message.text;
    if (message.kind == RunMessageKind::job) plan.jobs.push_back(message.text);
    if (message.kind == RunMessageKind::runJobs) plan.chosen = jobsOfRanges(message.text);
}

/// What a window sends: the run as it was introduced to it, and the jobs to be run.
int runForWindow(WireLink& window) {
    RunPlan plan;
    plan.fresh = false;
    RunFiles named;
    while (window.isOpen() && plan.chosen.empty()) {
        for (const auto& message : window.receive()) take(message, plan, named);
        clockInUse().sleep(1);
    }
    const bool known = !plan.chosen.empty() && plan.chosen.back() <= plan.jobs.size();
    if (!known) return stoppedStatus;
    if (!claimAgain(named.log, named.output, plan.files)) {
        window.send(
            RunMessage{.kind = RunMessageKind::trouble, .text = "Another run is at work in '" + named.log + "'."});
        window.send(RunMessage{.kind = RunMessageKind::finished, .text = "stopped"});
        return stoppedStatus;
    }
    return runPlan(std::move(plan), &window);
}

int runForWindow(std::string_view end) {
    auto wire = joinPartner(end);
    if (!wire) return stoppedStatus;
    WireLink window(std::move(wire));
    const int status = runForWindow(window);
    window.letGo();
    return status;
}

int answer(std::string_view& text) {
    noteInterruption();
    if (takeWord(text, "--run-line")) return runLine(text);
    if (takeWord(text, runJobsOption)) return runForWindow(text);
    takeWord(text, "--run");
    return runBatchFile(parseRequest(text));
}

}  // namespace

std::optional<int> answerRunOption(std::string_view commandLine) {
    const std::string_view option = commandLine.substr(0, commandLine.find(' '));
    if (option != "--run" && option != "--run-line" && option != runJobsOption) return std::nullopt;
    try {
        return answer(commandLine);
    } catch (const RunTimeError& error) {
        print(StandardStream::error, "brasquelin: " + replaceAll(error.reportWhileLoading({}), "\r\n", " ") + '\n');
        return unreadable;
    }
}

}  // namespace brasquelin
