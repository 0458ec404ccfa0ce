// What the main window does with files that are dropped on it.
#pragma once

#include <string>
#include <vector>

class wxWindow;

namespace brasquelin {

/// Opens the files behind the event, as openDropped. False when a dialog is open: it would get under it; while a file
/// is being run, that is told.
bool dropFiles(wxWindow& window, const std::vector<std::string>& paths);

}  // namespace brasquelin
