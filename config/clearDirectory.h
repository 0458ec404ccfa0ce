// Emptying the temporary directory at start-up.
#pragma once

#include <string_view>

namespace brasquelin {

/// Deletes the files of `directory` and of its immediate subdirectories, and those subdirectories that are empty then.
/// Every failure is skipped. Nothing happens for an empty text, a file-system root, the program directory or a parent
/// of it; a linked directory is removed as a link, never entered.
void clearDirectory(std::string_view directory);

}  // namespace brasquelin
