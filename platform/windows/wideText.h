// UTF-8 inside, the wide form of the system's calls outside.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

std::wstring toWide(std::string_view text);
std::string fromWide(std::wstring_view text);

/// Bytes of a code page to wide text and back; what the code page cannot hold becomes its nearest character.
std::wstring wideFromPage(std::string_view bytes, unsigned page);
std::string pageFromWide(std::wstring_view text, unsigned page);

}  // namespace brasquelin
