// Opening a profile or library: prompt, run, and what follows the run.
#pragma once

#include <string>
#include <vector>

namespace brasquelin {

/// State of the opening operations.
struct RunState {
    std::string currentFile;  // named on the command line; empty otherwise
    bool replaying = false;   // list mode is at work
    bool running = false;     // a file is being run; another one has to wait
    std::string runningFile;
    bool completed = false;  // the last run came to its end
    void reset() { *this = RunState(); }
};
extern RunState runState;

/// Opens by extension: "bqp" a profile, "bqs" a library, anything else is ignored (false). Raises the errors of the
/// prompt.
bool openFile(const std::string& path, std::vector<std::string> presets);

/// False, after a message, while another file is being run.
bool mayOpen();

/// Opens what a picker offers, with no command-line values. Errors are reported. False when another file is being run:
/// that is told, and nothing happens.
bool openPicked(const std::string& path);

}  // namespace brasquelin
