// TERM, INT and HUP: what the program waits for ends first, then the program, as by the signal.
#pragma once

#include <sys/types.h>

#include <csignal>

namespace brasquelin {

/// Holds the signals back for as long as it lives: what is done meanwhile is done whole.
class SignalHold {
  public:
    SignalHold();
    ~SignalHold();
    SignalHold(const SignalHold&) = delete;
    SignalHold& operator=(const SignalHold&) = delete;
    /// The mask that children are started with.
    const sigset_t& before() const { return before_; }

  private:
    sigset_t before_{};
};

/// The process group that ends with the program; 0 for none. Called while signals are held.
void endWithProgram(pid_t group);

/// Ends and collects a child, with its group if it leads one: asks first, then forces, half a second later.
void endChild(pid_t child, bool withGroup);

}  // namespace brasquelin
