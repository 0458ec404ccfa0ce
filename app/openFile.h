// Opening a profile or library: prompt, run, and what follows the run.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace brasquelin {

/// State shared by the opening operations and the waiting window.
struct Opening {
    std::string currentFile;   // named on the command line; empty otherwise
    bool replaying = false;    // list mode is at work
    std::size_t replayed = 0;  // its progress, for the waiting window
    std::size_t toReplay = 0;
    bool running = false;              // a file is being run; another one has to wait
    std::function<void()> waitingRun;  // what the waiting window's timer starts
    void reset() { *this = Opening(); }
};
extern Opening opening;

/// Opens by extension: "bqp" a profile, "bqs" a library, anything else nothing. Raises the errors of the prompt.
void openFile(const std::string& path, const std::vector<std::string>& presets);

/// Opens what a picker offers, with no command-line values. Errors are reported; while a file is being run that is all
/// that happens.
void openPicked(const std::string& path);

/// The waiting window's timer fired: starts what waits, once.
void runWaiting();

}  // namespace brasquelin
