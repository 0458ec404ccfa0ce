// The fixed sequence of a start.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "vars/commandLine.h"

namespace brasquelin {

/// Every table as at the start of the program. What the interpreter hands over goes to the job list.
void resetTables();

/// Changes to the file's directory and opens the file. False when it is neither a profile nor a library. Raises the
/// errors of both.
bool openArgument(FileArgument argument);

/// Resets every table, registers the file types, reads the configuration, has the window borders measured by
/// `detectBorders` (where there are windows), and does what the command line asks for. Run-time errors are reported and
/// stop it. True when the program goes on interactively; false when start-up was stopped by an error. Raises
/// EndProgram.
bool startUp(const std::string& commandLine, const std::function<void()>& detectBorders = {});

/// The whole program where no window can be shown, for a reason that is told when one is needed: the exit status.
int runWithoutWindows(const std::string& commandLine, std::string_view reason);

/// The main window is destroyed: ends the child process that was last waited for.
void endLastChild();

}  // namespace brasquelin
