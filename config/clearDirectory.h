// Emptying the temporary directory at start-up.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// Deletes the files of a directory and of its immediate subdirectories, and those subdirectories that are empty then.
/// The directory is taken exactly as it is spelled (see exactDirectory); every failure is skipped. Nothing happens for
/// an empty text, a file-system root, a link, a path that a link leads outside the directory that holds it, and for the
/// program directory, the user's own, what `kept` names and all that hold one of them; a link in the directory is
/// removed as a link, never entered.
void clearDirectory(std::string_view path, const std::vector<std::string>& kept = {});

}  // namespace brasquelin
