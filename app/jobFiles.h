// Job lists in files elsewhere: saved to be run without the program or to be opened again.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

enum class JobFileKind {
    none,    // the extension is that of no list of jobs
    batch,   // "bat", "cmd": as the program writes its batch file
    script,  // "sh": runs the jobs as the batch runner of Linux does, each shown before it runs
    text,    // "txt": one job a line
};
JobFileKind kindOfJobFile(std::string_view path);

/// Writes the job list; a script is made executable, every other kind is a batch file. Raises the error of writing.
void writeJobFile(const std::string& path);

/// The jobs of a file: each line of a batch file, what the program has written into a script, the lines of a text that
/// are not blank. Raises the errors of reading, 57 for a script of another kind and 75 with the line for what holds a
/// NUL.
std::vector<std::string> readJobFile(const std::string& path);

/// Asks for a file and writes the list. What was written counts as saved.
void saveJobsAs();

/// Asks for a file and appends its jobs, as a step.
void openJobs();
/// The same for a given file. False for one that cannot be read, which was reported.
bool appendJobFile(const std::string& path);

}  // namespace brasquelin
