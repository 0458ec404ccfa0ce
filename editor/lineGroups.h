// Whole line groups of a list, several at once. A group is a line with the attribute lines behind it; in the include
// list each line is one.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/profileDocument.h"

namespace brasquelin {

/// Sorted, each once.
using LineNumbers = std::vector<std::size_t>;

/// True for the line that its group begins with.
bool beginsGroup(const std::vector<std::string>& lines, EditorList which, std::size_t line);

/// The line that the group of this line begins with.
std::size_t groupStart(const std::vector<std::string>& lines, EditorList which, std::size_t line);

/// All lines of the groups that hold one of these.
LineNumbers wholeGroups(const std::vector<std::string>& lines, EditorList which, const LineNumbers& some);

/// The next place at or behind this one that is between two groups. A place is named by the line that stands there.
std::size_t placeBetween(const std::vector<std::string>& lines, EditorList which, std::size_t place);

/// Behind the last group that holds one of these; at the end of the list for none.
std::size_t placeBehind(const std::vector<std::string>& lines, EditorList which, const LineNumbers& some);

/// Whether there is a group above or below that of the line.
bool hasGroupAbove(const std::vector<std::string>& lines, EditorList which, std::size_t line);
bool hasGroupBelow(const std::vector<std::string>& lines, EditorList which, std::size_t line);

/// The lines as other programs get them, and what is taken of a text from them: neither empty lines nor section tags.
std::string textOf(const std::vector<std::string>& lines, const LineNumbers& numbers);
std::vector<std::string> linesOfText(std::string_view text);

void eraseLines(std::vector<std::string>& lines, const LineNumbers& numbers);
/// Erases the groups that begin with one of these; nothing for attribute lines. False when nothing was erased.
bool eraseGroups(std::vector<std::string>& lines, EditorList which, const LineNumbers& selected);

/// Both give where the lines stand then.
LineNumbers insertLines(std::vector<std::string>& lines, std::size_t place, const std::vector<std::string>& added);
LineNumbers moveLines(std::vector<std::string>& lines, const LineNumbers& numbers, std::size_t place);

/// Exchanges the group of the selected line with the one before or after it. In the command list nothing selected
/// counts as its first line, and more than 256 groups or lines in a group raise 9; the list is as it was then. Gives
/// the selected line's new place.
std::optional<std::size_t> moveGroupUp(std::vector<std::string>& lines, EditorList which,
                                       std::optional<std::size_t> selected);
std::optional<std::size_t> moveGroupDown(std::vector<std::string>& lines, EditorList which,
                                         std::optional<std::size_t> selected);

}  // namespace brasquelin
