// The system's own code pages: single bytes to UTF-8 text and back.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

std::string fromAnsi(std::string_view bytes);
std::string fromOem(std::string_view bytes);

/// What the page cannot hold becomes a near letter or a question mark.
std::string toAnsi(std::string_view text);

}  // namespace brasquelin
