// From the text of a command to the arguments with which the system's shell is started.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// The word as the shell reads it back unchanged.
std::string quotedForShell(std::string_view word);

/// The arguments for /bin/sh. A command that is a batch file alone is given to the batch runner. The first word of any
/// other command is looked up as the shell does it, a path in any letter case, unless shell syntax decides what it
/// is. Raises 53 for a program that does not exist, 70 for one that may not be run; both name it.
std::vector<std::string> shellArguments(std::string_view command);

/// The same for this program, which shows the command in its run window.
std::vector<std::string> runWindowArguments(std::string_view command);

}  // namespace brasquelin
