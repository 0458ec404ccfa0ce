// Files of the program directory that keep what was not saved, one for each document or list.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// "profile.kept", "profile-2.kept" and so on: the first that neither exists nor is used by another running program.
std::string unusedKeptFile(std::string_view start);

/// The existing ones but this and those of other running programs, the newest first.
std::vector<std::string> keptFilesBut(std::string_view start, std::string_view own);

/// The oldest ones beyond twenty go.
void limitKeptFiles(std::string_view start);

}  // namespace brasquelin
