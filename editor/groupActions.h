// What the user can do with the selected lines of a list, several at once, without a window. Whole groups go together.
// Each gives the lines that are to be selected then.
#pragma once

#include <cstddef>
#include <string>

#include "editor/lineGroups.h"

namespace brasquelin {

using GroupAction = LineNumbers (*)(EditorList which, const LineNumbers& selected);

/// Groups go with their first line; an attribute line alone stays.
LineNumbers removeSelected(EditorList which, const LineNumbers& selected);

/// The lines of the groups that hold a selected line, as text.
std::string selectedText(EditorList which, const LineNumbers& selected);
void copySelected(EditorList which, const LineNumbers& selected);
LineNumbers cutSelected(EditorList which, const LineNumbers& selected);
/// The lines of the clipboard, behind the selection; at the end of the list where nothing is selected.
LineNumbers pasteBehind(EditorList which, const LineNumbers& selected);

/// In front of the next group from this line on.
LineNumbers insertText(EditorList which, std::size_t before, const std::string& text);
LineNumbers moveSelectedTo(EditorList which, const LineNumbers& selected, std::size_t before);

/// By one group. Of several selected lines the last one counts. Too many groups or lines in a group of the command list
/// are reported.
LineNumbers moveSelectedUp(EditorList which, const LineNumbers& selected);
LineNumbers moveSelectedDown(EditorList which, const LineNumbers& selected);
bool canMoveUp(EditorList which, const LineNumbers& selected);
bool canMoveDown(EditorList which, const LineNumbers& selected);

}  // namespace brasquelin
