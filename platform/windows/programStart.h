// From the text of a command to what the system can start.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

struct ProgramStart {
    std::wstring program;      // full path
    std::wstring commandLine;  // for the program, its own path included
};

/// Finds the program at the start of a command: in quotes, or up to the first blank at which a program exists (".exe"
/// may be missing, the search path counts). A batch file is handed to the command interpreter, and quoted where its
/// path holds blanks, also behind a launcher. Raises 53 with its name when there is no such program, 5 for an
/// empty command.
ProgramStart programStartOf(std::string_view command);

}  // namespace brasquelin
