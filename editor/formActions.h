// Lines that were made by a form are opened in it again, and command lines are written as text.
#pragma once

#include <string>
#include <vector>

#include "editor/lineGroups.h"

namespace brasquelin {

/// Opens the group of the first selected line in the form that makes such lines, which takes its place then. What no
/// form makes is told. Gives the lines that are to be selected.
LineNumbers editInForm(EditorList which, const LineNumbers& selected);

/// Asks for a command line and puts it behind the selected group; at the end of the list where nothing is selected.
/// Nothing for an empty one. Gives the lines that are to be selected.
LineNumbers addCommandLine(const LineNumbers& selected);

/// Asks for the values of a loop and appends it, or puts it in place of the group that is in the form.
void askLoop();

// For the forms

/// The lines of the group that is being edited; none while the form makes a new one.
std::vector<std::string> groupInForm(EditorList which);
/// Puts these lines in place of that group; at the end of the list while there is none.
void putFromForm(EditorList which, const std::vector<std::string>& lines);

}  // namespace brasquelin
