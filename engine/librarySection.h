// The "[library]" section: includes, plugins and checks.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

/// A path of the section with "$exepath$" and "$scriptpath$" (the directory of the profile) replaced.
std::string replaceDirectories(std::string_view path, std::string_view profilePath);

/// The profile must be the innermost one on the file stack. Fills the callables, plugins and checks of the level from
/// the profile at `path` and runs its plugins and checks in the order of the lines. Raises the errors of missing files,
/// of programs and of full tables.
void processLibrarySection(const std::string& path, int level);

}  // namespace brasquelin
