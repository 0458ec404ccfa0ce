// A batch file as a list of jobs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// Each line that is a job, as its bytes stand there: without the carriage returns, the remark lines ("//") and the
/// lines that hold nothing but blanks. Raises the errors of reading; 75 with the line for what holds a NUL.
std::vector<std::string> readJobs(const std::string& path);

/// The line as text.
std::string jobText(std::string_view line);

}  // namespace brasquelin
