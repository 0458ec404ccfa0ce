// The terminal that the program was started from, lent to the group of a child for as long as it is waited for: only
// the group in front may read it, and Ctrl+C and Ctrl+Z reach that group alone.
#pragma once

#include <sys/types.h>

namespace brasquelin {

/// True when standard input is a terminal and the program's group is the one in front.
bool ownsTerminal();

/// The child has put its group in front.
void noteTerminalLent(pid_t group);

/// Nothing unless the terminal is lent. Safe in a signal handler.
void takeTerminalBack();

/// The group has stopped, by Ctrl+Z or because it reads the terminal from behind: the program's own group stops, too,
/// and both go on when the user continues it.
void stopWithChild(pid_t group, int signal);

/// The child has ended. What Ctrl+C or the like did to it happens to the program's own group, too, as it would have
/// without the loan.
void endTerminalLoan(pid_t group, int waitStatus);

}  // namespace brasquelin
