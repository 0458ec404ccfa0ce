#include "batch/runTexts.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

#include "batch/runRows.h"
#include "text/substitution.h"

namespace brasquelin {

namespace {

constexpr std::uint64_t second = 1000;

std::string formatted(const char* format, double number) {
    char text[32];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

std::string jobsInWords(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " job" : " jobs");
}

std::string localTime(std::time_t time, const char* format) {
    char text[64];
    const std::tm* local = std::localtime(&time);
    return local ? std::string(text, std::strftime(text, sizeof text, format, local)) : std::string();
}

std::string percent(const RunRows& rows) {
    return std::to_string(static_cast<int>(rows.fractionDone() * 100)) + " %";
}

/// ", 2 failed", ", 3 left out" where there are such.
std::string withoutSuccess(const JobCounts& counts) {
    std::string text;
    if (counts.failed > 0) text += ", " + std::to_string(counts.failed) + " failed";
    if (counts.leftOut > 0) text += ", " + std::to_string(counts.leftOut) + " left out";
    return text;
}

std::string shortEnd(const RunRows& rows) {
    if (rows.phase() == RunPhase::lost) return "Broken off";
    if (rows.counts().done == rows.size()) return "Done";
    if (rows.outcome() != RunOutcome::complete) return "Stopped";
    const std::size_t failed = rows.counts().failed;
    return failed == 0 ? "Done" : std::to_string(failed) + " failed";
}

/// Without parts of a second.
std::string secondsInWords(std::uint64_t milliseconds) {
    const std::uint64_t seconds = milliseconds / second;
    if (seconds < 60) return std::to_string(seconds) + " s";
    char text[48];
    const auto part = [seconds](std::uint64_t unit, std::uint64_t next) {
        return static_cast<unsigned long long>(seconds % next / unit);
    };
    const auto hours = static_cast<unsigned long long>(seconds / 3600);
    if (hours == 0) {
        std::snprintf(text, sizeof text, "%llu:%02llu", part(60, 3600), part(1, 60));
    } else {
        std::snprintf(text, sizeof text, "%llu:%02llu:%02llu", hours, part(60, 3600), part(1, 60));
    }
    return text;
}

}  // namespace

std::string statusText(const RunRows& rows, std::size_t job) {
    const RunRow& row = rows.row(job);
    switch (row.state) {
        case JobState::waiting:
            return "Waiting";
        case JobState::running:
            return "Running";
        case JobState::done:
            return "Done";
        case JobState::failed:
            return row.signal > 0 ? "Failed, signal " + std::to_string(row.signal)
                                  : "Failed, status " + std::to_string(row.exitCode);
        case JobState::brokenOff:
            return "Broken off";
        case JobState::leftOut:
            return "Left out";
    }
    return {};
}

std::string startText(const RunRows& rows, std::size_t job) {
    const std::int64_t start = rows.row(job).start;
    if (start <= 0) return {};
    const auto time = static_cast<std::time_t>(start / 1000);
    constexpr const char* day = "%Y-%m-%d";
    const bool today = localTime(time, day) == localTime(std::time(nullptr), day);
    return localTime(time, today ? "%H:%M:%S" : "%Y-%m-%d %H:%M:%S");
}

std::string durationText(const RunRows& rows, std::size_t job) {
    const JobState state = rows.row(job).state;
    const bool hasRun = state == JobState::running || state == JobState::done || state == JobState::failed;
    return hasRun ? durationInWords(static_cast<std::uint64_t>(std::max<std::int64_t>(rows.durationOf(job), 0))) : "";
}

std::string durationInWords(std::uint64_t milliseconds) {
    if (milliseconds >= 10 * second) return secondsInWords(milliseconds);
    const std::uint64_t tenths = milliseconds / 100;  // not rounded up
    return formatted("%.1f s", static_cast<double>(tenths) / 10);
}

std::string titleText(const RunRows& rows) {
    std::string name = rows.title();
    name.erase(0, name.find_first_not_of(' '));
    if (name.empty()) name = "Brasquelin";
    if (rows.size() == 0) return name;
    const JobCounts& counts = rows.counts();
    const bool going = rows.isRunning() || rows.phase() == RunPhase::asking;
    return (going ? percent(rows) : shortEnd(rows)) + " - " + std::to_string(counts.over()) + " of " +
           std::to_string(rows.size()) + " - " + name;
}

std::string progressText(const RunRows& rows) {
    const JobCounts& counts = rows.counts();
    std::string text = std::to_string(counts.over()) + " of " + jobsInWords(rows.size()) + ": " +
                       std::to_string(counts.done) + " done" + withoutSuccess(counts);
    if (counts.waiting > 0) text += ", " + std::to_string(counts.waiting) + " waiting";
    if (const auto rate = rows.jobsAMinute()) {
        text += "   " + formatted(*rate < 100 ? "%.1f" : "%.0f", *rate) + " a minute";
    }
    const auto left = rows.timeLeft();
    if (left && *left >= second) return text + "   " + secondsInWords(*left) + " left";
    return rows.elapsed() > 0 ? text + "   " + durationInWords(rows.elapsed()) : text;
}

std::string endText(const RunRows& rows) {
    const JobCounts& counts = rows.counts();
    if (rows.size() == 0 && rows.phase() != RunPhase::lost) return "The batch file holds no jobs.";
    if (rows.size() > 0 && counts.done == rows.size()) {
        return rows.size() == 1 ? "The job is done." : "All " + jobsInWords(rows.size()) + " are done.";
    }
    const std::string tally =
        std::to_string(counts.done) + " of " + jobsInWords(rows.size()) + " done" + withoutSuccess(counts) + ".";
    if (rows.phase() == RunPhase::lost) return "The program that ran the jobs is gone: " + tally;
    switch (rows.outcome()) {
        case RunOutcome::stopped:
            return "Stopped: " + tally;
        case RunOutcome::firstFailure:
            return "Stopped at the first failure: " + tally;
        case RunOutcome::shellEnded:
            return "A job has ended the shell, and with it the run: " + tally;
        case RunOutcome::complete:
            break;
    }
    return "The run has ended: " + tally;
}

std::string resumeQuestion(const RunRows& rows) {
    const std::size_t open = rows.openJobs().size();
    return "An earlier run of '" + fileNameOf(rows.batchFile()) +
           "' was not finished: " + std::to_string(rows.counts().done) + " of " + jobsInWords(rows.size()) +
           " have ended well, " + std::to_string(open) + (open == 1 ? " is" : " are") +
           " left.\nGo on where it stopped?";
}

}  // namespace brasquelin
