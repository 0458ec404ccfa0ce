// Asking for one text with the known references at hand, through the window `inputForm`.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// The answer of a window that was cancelled.
inline constexpr std::string_view canceledAnswer = "Canceled";

/// Shows the window and returns the answer: the text, or "Canceled".
std::string showValueInput(std::string_view prompt, std::string_view defaultText,
                           const std::vector<std::string>& references);

}  // namespace brasquelin
