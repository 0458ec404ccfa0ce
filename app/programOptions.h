// The options of the command line that are answered before anything is read, registered or shown.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// Answers a command line that starts with "--": help and version go to standard output, and an option that does not
/// exist is told on standard error. Gives the exit status then; nothing for any other command line. `arguments` are the
/// words of the same command line.
std::optional<int> answerOption(std::string_view commandLine, const std::vector<std::string>& arguments);

}  // namespace brasquelin
