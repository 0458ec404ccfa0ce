// Emptying the temporary directory at start-up.
#pragma once

#include <string_view>

namespace brasquelin {

/// Deletes the files of a directory and of its immediate subdirectories, and those subdirectories that are empty then.
/// The directory is taken exactly as it is spelled (see exactDirectory); every failure is skipped. Nothing happens for
/// an empty text, a file-system root, the program directory or a parent of it, and a link; a link in the directory is
/// removed as a link, never entered.
void clearDirectory(std::string_view path);

}  // namespace brasquelin
