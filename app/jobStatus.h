// What the status line of the main window tells.
#pragma once

#include <cstddef>
#include <string>

namespace brasquelin {

/// "12 jobs", and how many of them are shown where some are hidden.
std::string jobCountText(std::size_t all, std::size_t shown);
/// "3 selected"; empty for none.
std::string selectedText(std::size_t selected);
/// What the program is doing, else what was noted last.
std::string activityText();

/// Tells what was done with the list, until the list changes.
void noteJobs(std::string text);

}  // namespace brasquelin
