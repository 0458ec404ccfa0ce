// The log of a run, one line for each job that has ended, in the format of GNU parallel: tools that read that read it,
// and a run that was broken off can go on where it stopped.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

struct JobLogEntry {
    std::size_t job = 0;           // from 1
    std::int64_t start = 0;        // milliseconds since 1970
    std::int64_t duration = 0;     // milliseconds
    std::uint64_t outputSize = 0;  // bytes
    int exitCode = 0;
    int signal = 0;
    std::string command = {};

    bool endedWell() const { return exitCode == 0 && signal == 0; }
    bool operator==(const JobLogEntry&) const = default;
};

/// The first line, its end included.
extern const std::string_view jobLogHeader;

/// One line, its end included.
std::string encode(const JobLogEntry& entry);

/// The entries, in order. A line that is none, such as one that was broken off, is left out.
std::vector<JobLogEntry> parseJobLog(std::string_view text);

/// What is known of an earlier run of a list: the last entry of each job. Empty when the log is one of another list.
using EarlierRun = std::map<std::size_t, JobLogEntry>;
EarlierRun earlierRunOf(const std::vector<std::string>& jobs, const std::vector<JobLogEntry>& entries);

/// True when some job was never run to its end.
bool isUnfinished(const EarlierRun& earlier, std::size_t jobCount);

/// The jobs that did not end well.
std::vector<std::size_t> jobsLeft(const EarlierRun& earlier, std::size_t jobCount);

/// What the shell noted behind each line ("NUMBER STATUS"), of which the first `logged` are in the log: the entries
/// that are missing there, because whoever writes the log was ended before. Their times are `time`.
std::vector<JobLogEntry> entriesOfJournal(std::string_view journal, std::size_t logged,
                                          const std::vector<std::string>& jobs, std::int64_t time);

}  // namespace brasquelin
