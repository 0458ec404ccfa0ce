// The real program as a process of its own, in a copy of its directory.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "support/scratchDirectory.h"

namespace brasquelin {

/// The directory is the program directory. It holds the program and an empty configuration.
class ProgramRun : public ScratchDirectory {
  public:
    ProgramRun();
    /// Ends the program by force.
    ~ProgramRun();

    /// The short form of the program directory.
    const std::string& shortDirectory() const { return shortDirectory_; }
    bool exists(std::string_view name) const;

    /// A library "line" whose job is the text that it is given.
    void writeLineLibrary() const;
    /// A profile with a text variable "x", further lines of its library section, and this body, which may call "line".
    std::string writeProfile(std::string_view name, std::string_view library, std::string_view body) const;
    /// A plugin, check or launcher: see helper.cpp.
    void copyHelper(std::string_view name) const;

    /// Starts the program with a raw command line behind its own path, without a display where it can do without.
    /// What it prints is in "out.txt" and "err.txt".
    void start(const std::string& commandLine);
    /// The exit status, 128 and more for one that a signal ended. -1 and a failure of the test when it does not end.
    int waitForEnd();
    int run(const std::string& commandLine) {
        start(commandLine);
        return waitForEnd();
    }
    void endByForce();

    /// The system's own handle of the process, 0 when there is none.
    std::intptr_t process() const { return process_; }

  protected:
    std::intptr_t process_ = 0;

  private:
    std::string shortDirectory_;
};

}  // namespace brasquelin
