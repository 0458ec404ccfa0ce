// What the status line of the main window tells.
#pragma once

#include <cstddef>
#include <string>

namespace brasquelin {

/// "12 jobs", and how many of them are shown where some are hidden.
std::string jobCountText(std::size_t all, std::size_t shown);
/// "3 selected"; empty for none.
std::string selectedText(std::size_t selected);
/// What the program is doing; empty while it waits for the user.
std::string activityText();

}  // namespace brasquelin
