// Starting a program: what the child does before it becomes that program.
#pragma once

#include <spawn.h>
#include <sys/types.h>

#include <csignal>
#include <string>
#include <vector>

namespace brasquelin {

/// The child is told of a broken pipe, which this program ignores. It gets only those open files that are given to it,
/// besides the standard streams.
class Spawn {
  public:
    Spawn();
    ~Spawn();
    Spawn(const Spawn&) = delete;
    Spawn& operator=(const Spawn&) = delete;

    /// Without a terminal, and out of reach of what ends this program's session.
    void inNewSession() { flags_ |= POSIX_SPAWN_SETSID; }
    void inOwnGroup() { flags_ |= POSIX_SPAWN_SETPGROUP; }
    /// The group is put in front on the terminal of standard input.
    void takeTerminal();
    void withSignalMask(const sigset_t& mask);

    /// The child finds an open file of this program under a number of its own.
    void give(int descriptor, int number);
    /// What the child reads there is empty, what it writes is lost.
    void giveNothing(int number);

    /// The first argument is the program's path. Raises the error of starting it, with that path.
    pid_t start(std::vector<std::string> arguments);

  private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
    int flags_ = POSIX_SPAWN_SETSIGDEF;
};

}  // namespace brasquelin
