#include "batch/jobLog.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <optional>

#include "batch/jobFile.h"
#include "text/text.h"

namespace brasquelin {

const std::string_view jobLogHeader = "Seq\tHost\tStarttime\tJobRuntime\tSend\tReceive\tExitval\tSignal\tCommand\n";

namespace {

enum Column { sequence, host, startTime, runTime, sent, received, exitValue, signalNumber, commandText, columnCount };

template <typename Number>
bool read(std::string_view text, Number& number) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const char* const end = text.data() + text.size();
    const auto [next, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && next == end;
}

/// Seconds with a fraction.
bool readSeconds(std::string_view text, std::int64_t& milliseconds) {
    constexpr double perSecond = 1000;
    double seconds = 0;
    if (!read(text, seconds) || !(std::abs(seconds) < 1e12)) return false;
    milliseconds = std::llround(seconds * perSecond);
    return true;
}

std::optional<JobLogEntry> parseLine(std::string_view line) {
    std::array<std::string_view, columnCount> columns;
    for (std::size_t i = 0; i + 1 < columns.size(); ++i) {
        const auto tab = line.find('\t');
        if (tab == std::string_view::npos) return std::nullopt;
        columns[i] = line.substr(0, tab);
        line.remove_prefix(tab + 1);
    }
    JobLogEntry entry;
    const bool whole = read(columns[sequence], entry.job) && readSeconds(columns[startTime], entry.start) &&
                       readSeconds(columns[runTime], entry.duration) && read(columns[received], entry.outputSize) &&
                       read(columns[exitValue], entry.exitCode) && read(columns[signalNumber], entry.signal);
    if (!whole) return std::nullopt;
    entry.command = line;
    return entry;
}

std::string seconds(std::int64_t milliseconds, const char* format) {
    constexpr double perSecond = 1000;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), format, static_cast<double>(milliseconds) / perSecond);
    return text.data();
}

}  // namespace

std::string encode(const JobLogEntry& entry) {
    std::string line = std::to_string(entry.job) + "\t:\t" + seconds(entry.start, "%.3f") + '\t' +
                       seconds(entry.duration, "%10.3f") + "\t0\t";
    line.append(std::to_string(entry.outputSize)).append("\t").append(std::to_string(entry.exitCode)).append("\t");
    return line.append(std::to_string(entry.signal)).append("\t").append(entry.command).append("\n");
}

std::vector<JobLogEntry> parseJobLog(std::string_view text) {
    std::vector<JobLogEntry> entries;
    for (std::size_t end = 0; (end = text.find('\n')) != std::string_view::npos; text.remove_prefix(end + 1)) {
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (auto entry = parseLine(line)) entries.push_back(std::move(*entry));
    }
    return entries;
}

EarlierRun earlierRunOf(const std::vector<std::string>& jobs, const std::vector<JobLogEntry>& entries) {
    EarlierRun earlier;
    for (const auto& entry : entries) {
        const bool known = entry.job >= 1 && entry.job <= jobs.size();
        if (!known || jobText(jobs[entry.job - 1]) != entry.command) return {};
        earlier[entry.job] = entry;
    }
    return earlier;
}

bool isUnfinished(const EarlierRun& earlier, std::size_t jobCount) {
    if (earlier.empty()) return false;
    if (earlier.size() < jobCount) return true;
    return std::any_of(earlier.begin(), earlier.end(), [](const auto& known) { return known.second.signal != 0; });
}

std::vector<std::size_t> jobsLeft(const EarlierRun& earlier, std::size_t jobCount) {
    std::vector<std::size_t> left;
    for (std::size_t job = 1; job <= jobCount; ++job) {
        const auto known = earlier.find(job);
        if (known == earlier.end() || !known->second.endedWell()) left.push_back(job);
    }
    return left;
}

std::vector<JobLogEntry> entriesOfJournal(std::string_view journal, std::size_t logged,
                                          const std::vector<std::string>& jobs, std::int64_t time) {
    std::vector<JobLogEntry> entries;
    for (std::size_t end = 0; (end = journal.find('\n')) != std::string_view::npos; journal.remove_prefix(end + 1)) {
        std::string_view line = journal.substr(0, end);
        while (line.ends_with('\r') || line.ends_with(' ')) line.remove_suffix(1);
        JobLogEntry entry{.start = time};
        const auto blank = line.find(' ');
        if (blank == std::string_view::npos || !read(line.substr(0, blank), entry.job)) continue;
        if (!read(line.substr(blank), entry.exitCode) || entry.job < 1 || entry.job > jobs.size()) continue;
        entry.command = jobText(jobs[entry.job - 1]);
        if (logged > 0) {
            --logged;
        } else {
            entries.push_back(std::move(entry));
        }
    }
    return entries;
}

}  // namespace brasquelin
