// Positions that are given in twips, as pixels of the running desktop.
#pragma once

#include <wx/gdicmn.h>

class wxWindow;

namespace brasquelin {

/// One factor for each direction, so that everything keeps its proportions and no control is cut off.
class TwipScale {
  public:
    /// Measures the fonts and controls that `window` would get. At plain 1,440 twips an inch some desktops cut them
    /// off.
    explicit TwipScale(wxWindow& window);
    TwipScale(double pixelsPerTwipX, double pixelsPerTwipY) : x_(pixelsPerTwipX), y_(pixelsPerTwipY) {}

    int x(int twips) const;
    int y(int twips) const;

    /// Edges are rounded, not sizes: neighbours keep touching.
    wxRect rect(int left, int top, int width, int height) const;

  private:
    double x_ = 0;
    double y_ = 0;
};

}  // namespace brasquelin
