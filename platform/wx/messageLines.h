// The text of message boxes, in lines that fit on a screen.
#pragma once

#include <wx/string.h>

#include <cstddef>

namespace brasquelin {

/// Lines longer than `width` characters are broken behind a blank, else behind a separator of a path, else anywhere.
wxString brokenIntoLines(const wxString& text, std::size_t width);

}  // namespace brasquelin
