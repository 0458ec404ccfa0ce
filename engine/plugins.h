// Plugins and checks: programs that run first and answer through a result file beside themselves.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

/// Runs a program, hidden, and appends the lines "name = value" of its result file to the plugin results of the level.
/// Raises 53 for an empty path and a missing program or result file, 5 for a line without " = ", 18 when the user ended
/// the program.
void runPlugin(std::string_view programPath, std::string_view parameters, int level);

/// The same into the check results.
void runCheck(std::string_view programPath, std::string_view parameters, int level);

/// The name of a plugin or check: its file name without the last four characters.
std::string pluginNameOf(std::string_view programPath);

}  // namespace brasquelin
