// Value expansion of a profile's lines.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

/// Expands a line at a nesting level: built-ins, global variables, counters of open loops, assignments, counters of all
/// loops started, declared variables, plugin variables. `line` is left as it stands before the last pass. `scriptPath`
/// is the profile's path, `index` what "$index$" becomes. Ends the program after its message for an assignment to an
/// undeclared variable; raises 9 or 13 for a bad item number.
std::string expandProfileLine(std::string& line, int level, std::string_view scriptPath, int index);

/// The same for whoever does not ask for the line before the last pass. The text lives until the next call.
const std::string& expandedLine(std::string_view line, int level, std::string_view scriptPath, int index);

/// The message about an assignment to a variable that its file does not declare.
[[noreturn]] void endForUnknownVar(std::string_view name, std::string_view fromFile, int fromLine,
                                   std::string_view inFile);

}  // namespace brasquelin
