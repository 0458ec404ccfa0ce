// Text as the program counts and compares it: UTF-8 inside, positions and lengths in code points, letter case
// folded per code point and independent of the locale.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// The number of code points.
std::size_t characterCount(std::string_view text);

/// The first `count` code points; the whole text when it is shorter.
std::string_view firstCharacters(std::string_view text, std::size_t count);

/// The last `count` code points; the whole text when it is shorter.
std::string_view lastCharacters(std::string_view text, std::size_t count);

/// The text from code point `position` (counted from 1) on; empty past the end.
std::string_view fromCharacter(std::string_view text, std::size_t position);

/// The text without its last `count` code points.
std::string_view withoutLast(std::string_view text, std::size_t count = 1);

/// Lower case of one code point (one to one; no code point outside ASCII becomes an ASCII one).
char32_t lowerCase(char32_t codePoint);
std::string lowerCase(std::string_view text);

/// Each code point in the upper case that has it as its lower case; unchanged where there is none.
std::string upperCase(std::string_view text);

bool isAscii(std::string_view text);
bool equalIgnoringCase(std::string_view left, std::string_view right);
bool startsWithIgnoringCase(std::string_view text, std::string_view prefix);
bool endsWithIgnoringCase(std::string_view text, std::string_view suffix);

/// A place in a text, in bytes. `begin` is npos when nothing was found.
struct TextMatch {
    std::size_t begin = std::string_view::npos;
    std::size_t end = std::string_view::npos;
    explicit operator bool() const { return begin != std::string_view::npos; }
};

/// The first place at or after byte `from` that equals `what` in any letter case. An empty `what` is found nowhere.
TextMatch findIgnoringCase(std::string_view text, std::string_view what, std::size_t from = 0);

/// The pieces between the separators; an empty text gives one empty piece.
std::vector<std::string_view> split(std::string_view text, std::string_view separator);

/// Every occurrence of `what` (exact letter case) replaced, left to right, without rescanning.
std::string replaceAll(std::string_view text, std::string_view what, std::string_view replacement);

/// The part before and after the first "="; without one the whole text is the name.
struct Assignment {
    std::string_view name;
    std::string_view value;
    bool hasEquals = false;
};
Assignment splitAssignment(std::string_view text);

/// The lines of a text that ends them with CR LF or LF, or with CR where there is no LF; a last line without an end
/// counts.
std::vector<std::string> splitLines(std::string_view text);

/// The text with a blank in place of each line break (CR LF, CR or LF).
std::string onOneLine(std::string_view text);

/// True for well-formed UTF-8.
bool isUtf8(std::string_view bytes);

/// Appends a code point as UTF-8.
void appendUtf8(std::string& text, char32_t codePoint);

/// The whole number that the text spells (blanks around it and a sign are accepted), as a 16-bit value.
/// Raises error 13 when it is no whole number, error 6 when it does not fit.
int toInteger16(std::string_view text);

}  // namespace brasquelin
