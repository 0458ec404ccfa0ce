// What the program's windows remember from start to start: "key=value" lines in a file of the program directory.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

/// The file of all windows.
std::string preferencesFile();

/// The value; empty without such a line, and for a file that is missing or cannot be read.
std::string preference(const std::string& file, std::string_view key);
/// Leaves the other lines as they are. Raises the error of writing.
void setPreference(const std::string& file, std::string_view key, std::string_view value);

}  // namespace brasquelin
