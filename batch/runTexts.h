// What the window of a run says in words.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace brasquelin {

class RunRows;

/// One job's cells. The start is in local time, with its day unless that is today.
std::string statusText(const RunRows& rows, std::size_t job);
std::string startText(const RunRows& rows, std::size_t job);
std::string durationText(const RunRows& rows, std::size_t job);

/// "0.3 s", "42 s", "3:07", "1:00:00".
std::string durationInWords(std::uint64_t milliseconds);

/// For the title bar: "37 % - 12 of 40 - Brasquelin", then how it ended.
std::string titleText(const RunRows& rows);
/// Below the progress bar: counts, jobs a minute, time left.
std::string progressText(const RunRows& rows);
/// How the run ended, a sentence: "All 40 jobs are done."
std::string endText(const RunRows& rows);
/// What is asked about an earlier run that was not finished.
std::string resumeQuestion(const RunRows& rows);

}  // namespace brasquelin
