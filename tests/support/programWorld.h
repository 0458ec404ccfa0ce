// A throw-away program directory with every table reset, a scripted desktop, and no real time or processes.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "support/fakeProcesses.h"
#include "support/scratchDirectory.h"
#include "support/scriptedDesktop.h"

namespace brasquelin {

/// The program's state is that of a fresh start, in this directory; only one at a time.
class ProgramWorld {
  public:
    ProgramWorld();
    ~ProgramWorld();
    ProgramWorld(const ProgramWorld&) = delete;
    ProgramWorld& operator=(const ProgramWorld&) = delete;

    /// The library "Say" with a text variable "text", whose job is "echo $text$".
    void writeSayLibrary(std::string_view name) const;

    ScriptedDesktop desktop;
    FakeClock clock;
    FakeProcessTable processes;
    ScratchDirectory directory;
    std::vector<std::string> jobs;

  private:
    std::filesystem::path startedIn_;
};

}  // namespace brasquelin
