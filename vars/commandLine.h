// The grammar of the command line and of list files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// A file to open and the values for its variables, the first for the first variable.
struct FileArgument {
    std::string path;  // "$exepath$" replaced
    std::vector<std::string> presets;
};

/// The values of the arguments 001=, 002= and so on.
std::vector<std::string> parsePresets(std::string_view argumentText);

/// Path and presets of a command line or of the argument part of a list line.
FileArgument parseFileArgument(std::string_view argumentText);

/// Makes the file's directory the current one. A path without a directory part leaves that alone; "/x" means the root.
/// Raises 76 about the file.
void enterDirectoryOf(const std::string& path);

/// True when the command line starts with "-f " in any letter case.
bool isListMode(std::string_view commandLine);
std::string listFilePath(std::string_view commandLine);

/// The part of a list line behind the program's own path.
std::string_view argumentOfListLine(std::string_view line);

}  // namespace brasquelin
