// The commands of the editor with a long profile.
#pragma once

namespace brasquelin {

/// Opens the profile that the file dialog gives in the editor, and prints what each command takes until the window is
/// up to date. Called while the main window is shown.
void timeEditor();

}  // namespace brasquelin
