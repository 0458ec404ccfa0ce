// Files dropped on the main window.
#pragma once

#include <string>
#include <vector>

namespace brasquelin {

/// Opens the profiles and libraries among the files, one after the other, as the pickers do, and appends the jobs of
/// lists of jobs; others are ignored. While
/// a file is being run that is refused with a message, once.
void openDropped(const std::vector<std::string>& paths);

}  // namespace brasquelin
