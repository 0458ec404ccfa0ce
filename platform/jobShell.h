// One command interpreter that runs the lines of a batch file one after another and says when each has ended.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/childProcess.h"

namespace brasquelin {

/// A line, as its bytes stand in the batch file. Number 0: it prepares the shell, and its end is not told.
struct ShellLine {
    std::size_t number = 0;
    std::string line;
};

/// What a run writes for its shell. All of it is removed when the run has ended.
struct ShellFiles {
    std::string script;         // the lines with what tells their ends
    std::string journal;        // "NUMBER STATUS" of each line that has ended, written by the shell itself
    std::string stop;           // while it exists, no further line is begun
    std::string stopAtFailure;  // likewise, once a line has failed
};

/// Comes in front of the number and status of a line that has ended, in the midst of the output. The token is new for
/// each run, so that no output is taken for it.
std::string endMark(const std::string& token);

/// The text of the script, for the shell of this system. Behind each line's end stands endMark, "NUMBER STATUS" and a
/// line end in the output; " last" behind the status says that no further line is begun. The lines share the shell;
/// one that is no proper command fails without ending it (Linux).
std::string shellScript(const std::vector<ShellLine>& lines, const ShellFiles& files, const std::string& token);

/// True for a line that has no effect but on the shell that runs the others, such as "cd out" or an assignment.
bool onlyPreparesShell(std::string_view line);

class JobShell {
  public:
    /// Ends the shell and all that it started.
    virtual ~JobShell() = default;
    /// Appends what was printed; waits for it for up to `milliseconds`. False when the shell has ended and all that the
    /// lines printed has been given.
    virtual bool read(std::string& bytes, std::uint32_t milliseconds) = 0;
    /// Ends the whole tree of children: asks first (Linux), forces a moment later.
    virtual void end() = 0;
    /// How the shell ended, once `read` was false.
    virtual ProcessEnd ended() const = 0;
    /// The run is over: what lines have left in the background goes on; what it prints is appended to this file.
    virtual void leave(const std::string& outputFile) = 0;
};

/// Starts the system's shell on a script. Its standard input is empty; standard output and error are read by the
/// caller. `batchFile` is what the lines see as their script's first argument (Linux). Raises the error of starting.
std::unique_ptr<JobShell> startJobShell(const ShellFiles& files, const std::string& batchFile);

}  // namespace brasquelin
