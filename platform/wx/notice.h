// What is told to a user who looks at other windows.
#pragma once

#include <string_view>

class wxWindow;

namespace brasquelin {

/// A notification of the desktop, and a mark on the window where the desktop has such. Nothing when the window is in
/// front.
void notifyUser(wxWindow& window, std::string_view title, std::string_view text);

}  // namespace brasquelin
