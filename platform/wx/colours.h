// Colours that can be read on what is below them, in light and in dark themes.
#pragma once

#include <wx/colour.h>

class wxWindow;

namespace brasquelin {

bool isDark(const wxColour& colour);

/// `share` (0 to 1) of the way from one colour to the other.
wxColour mixed(const wxColour& from, const wxColour& to, double share);

/// From 1 to 21, as the guidelines for readable web pages define it.
double contrast(const wxColour& left, const wxColour& right);

/// Text that stands back behind other text, as far as it can still be read easily: with a contrast of 4.5, if the text
/// itself has that.
wxColour dimmed(const wxColour& text, const wxColour& ground);
/// In this window.
wxColour dimmedText(const wxWindow& window);

}  // namespace brasquelin
