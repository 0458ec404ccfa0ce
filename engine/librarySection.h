// The "[library]" section: includes, plugins and checks.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

/// A path of the section with "$exepath$" and "$scriptpath$" (the directory of the profile) replaced.
std::string replaceDirectories(std::string_view path, std::string_view profilePath);

/// A ":plugin" or ":check" line, split.
struct ProgramLine {
    std::string path;
    std::string parameters;
};

/// `pathStart` is the character at which the path starts: 9 for ":plugin ", 8 for ":check ". Tokens are not replaced.
ProgramLine splitProgramLine(std::string_view line, std::size_t pathStart);

/// The profile must be the innermost one on the file stack. Fills the callables, plugins and checks of the level from
/// the profile at `path` and runs its plugins and checks in the order of the lines. Raises the errors of missing files,
/// of programs and of full tables.
void processLibrarySection(const std::string& path, int level);

/// The callable name in the first line of an included file: from character 22 for a library, 21 for a profile.
std::string callableNameOf(std::string_view path, std::string_view firstLine);

}  // namespace brasquelin
