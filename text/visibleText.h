// Characters that would not be seen, or would make others stand where they are not, as signs.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

/// Appends a code point to UTF-8 text; a control or direction-changing character as a sign: U+2400 and following for
/// those of ASCII, such as "<U+202E>" for others.
void appendVisible(std::string& text, char32_t codePoint);

/// Takes the next code point off well-formed or broken UTF-8 in front; a byte that is no part of one is U+FFFD.
/// Nothing is taken when the text ends within a character: 0 then.
char32_t takeCodePoint(std::string_view& text);

/// A line as it can be shown.
std::string visibleText(std::string_view line);

/// The same for a list: after about a thousand characters " ..." stands for the rest.
std::string shownLine(std::string_view line);
/// The number of its characters.
std::size_t shownWidth(std::string_view line);

/// The text whose visible form the user has changed to `shown`: what was left alone keeps the characters that its signs
/// stand for.
std::string withEdit(std::string_view text, std::string_view shown);

}  // namespace brasquelin
