// The batch file and the commands that run it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace brasquelin {

/// "brasquelin.bat" in the short program directory.
std::string batchFilePath();

/// Writes the job list, one line per job, for the command interpreter. Raises the error of writing.
void writeBatchFile();

/// Writes the batch file, runs it and waits for its end: the unattended way.
void runBatchAndWait();

/// Starts the selected line as a command, without waiting. Nothing selected starts the empty text, which is error 5.
void executeLine(std::optional<std::size_t> selected);

/// Writes the batch file, starts it through the launcher and ends the program. An empty list is only a message.
void executeJobList();

/// True from then on until it has started: the list is on its way.
bool batchIsStarting();

/// By hand: it can be undone.
void clearJobList();

}  // namespace brasquelin
