#include "batch/runMessages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::array<std::string_view, 16> kinds = {
    "title",   "batch", "log",      "output",  "job", "earlier",        "ready",    "resumable",
    "started", "ended", "finished", "trouble", "run", "stop-after-job", "stop-now", "stop-at-failure"};
constexpr std::array<std::string_view, 4> outcomes = {"complete", "stopped", "first-failure", "shell-ended"};

template <typename Names>
std::optional<std::size_t> indexOf(const Names& names, std::string_view name) {
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end()) return std::nullopt;
    return static_cast<std::size_t>(found - names.begin());
}

/// Takes a number and the blank behind it off the front.
template <typename Number>
bool takeNumber(std::string_view& text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [next, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || next == end || *next != ' ') return false;
    text.remove_prefix(static_cast<std::size_t>(next - text.data()) + 1);
    return true;
}

std::optional<RunMessage> decode(std::string_view line) {
    const auto blank = line.find(' ');
    if (blank == std::string_view::npos) return std::nullopt;
    const auto kind = indexOf(kinds, line.substr(0, blank));
    if (!kind) return std::nullopt;
    line.remove_prefix(blank + 1);
    RunMessage message{static_cast<RunMessageKind>(*kind)};
    const bool whole = takeNumber(line, message.job) && takeNumber(line, message.time) &&
                       takeNumber(line, message.duration) && takeNumber(line, message.output) &&
                       takeNumber(line, message.exitCode) && takeNumber(line, message.signal);
    if (!whole) return std::nullopt;
    message.text = line;
    return message;
}

}  // namespace

std::string_view nameOf(RunOutcome outcome) {
    return outcomes[static_cast<std::size_t>(outcome)];
}

RunOutcome runOutcomeOf(std::string_view name) {
    return static_cast<RunOutcome>(indexOf(outcomes, name).value_or(static_cast<std::size_t>(RunOutcome::stopped)));
}

std::string encode(const RunMessage& message) {
    constexpr std::size_t usual = 96;  // bytes
    std::string line;
    line.reserve(usual);
    line = kinds[static_cast<std::size_t>(message.kind)];
    const auto append = [&](auto number) { line.append(" ").append(std::to_string(number)); };
    append(message.job);
    append(message.time);
    append(message.duration);
    append(message.output);
    append(message.exitCode);
    append(message.signal);
    line += ' ';
    if (!message.text.empty()) line.append(onOneLine(message.text));
    return line.append("\n");
}

std::vector<RunMessage> RunMessageReader::take(std::string_view bytes) {
    rest_.append(bytes);
    std::vector<RunMessage> messages;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = rest_.find('\n', begin)) != std::string::npos; begin = end + 1) {
        auto message = decode(std::string_view(rest_).substr(begin, end - begin));
        if (message) messages.push_back(std::move(*message));
    }
    rest_.erase(0, begin);
    return messages;
}

std::string jobRanges(const std::vector<std::size_t>& jobs) {
    std::string text;
    for (std::size_t i = 0; i < jobs.size();) {
        std::size_t last = i;
        while (last + 1 < jobs.size() && jobs[last + 1] == jobs[last] + 1) ++last;
        if (!text.empty()) text += ',';
        text += std::to_string(jobs[i]);
        if (last > i) text.append("-").append(std::to_string(jobs[last]));
        i = last + 1;
    }
    return text;
}

std::vector<std::size_t> jobsOfRanges(std::string_view ranges) {
    std::vector<std::size_t> jobs;
    for (const auto range : split(ranges, ",")) {
        std::size_t first = 0;
        const char* const end = range.data() + range.size();
        const auto [next, error] = std::from_chars(range.data(), end, first);
        if (error != std::errc()) continue;
        std::size_t last = first;
        if (next != end && *next == '-') std::from_chars(next + 1, end, last);
        for (std::size_t job = first; job <= last; ++job) jobs.push_back(job);
    }
    return jobs;
}

}  // namespace brasquelin
