// This program as the window of a run: the other side of "--run" (see app/runOption.h).
#pragma once

#include <optional>
#include <string_view>

namespace brasquelin {

/// Answers the command line "--run-window END": shows the run whose runner has the wire's other end, until the user
/// closes the window. Gives the exit status then; nothing for any other command line.
std::optional<int> answerRunWindow(std::string_view commandLine);

}  // namespace brasquelin
