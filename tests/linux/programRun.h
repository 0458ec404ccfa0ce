// The real program with what only Linux has: shells, terminals, signals.
#pragma once

#include "support/programRun.h"

namespace brasquelin {

class LinuxRun : public ProgramRun {
  public:
    LinuxRun();
    ~LinuxRun();

    /// Runs a shell script in the program's directory, such as "./brasquelin -f a & ./brasquelin -f b; wait".
    int runShell(const std::string& script);
    /// The program has a terminal of its own then, and prints there.
    void startAtTerminal(const std::string& commandLine);
    int terminal() const { return terminal_; }

  private:
    int terminal_ = -1;
};

}  // namespace brasquelin
