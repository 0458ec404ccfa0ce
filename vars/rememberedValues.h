// Answers remembered from run to run in "pop.tmp" beside the program, newest first, 51 at the most.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brasquelin {

/// The newest value under exactly this key.
std::optional<std::string> recallValue(std::string_view key);

/// What would not be read back, a line break or a key with "=", is told and not written. Raises the error of writing
/// the file.
void rememberValue(std::string_view key, std::string_view value);

}  // namespace brasquelin
