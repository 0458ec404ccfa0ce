// Parts of a window above each other, with sashes between them that the user can drag.
#pragma once

#include <wx/splitter.h>

#include <vector>

namespace brasquelin {

struct SashPart {
    wxWindow* window;  // made with `parentFor` as its parent
    int weight;        // its share of the height, until the user drags a sash
};

/// Splitters in one another. The parts are made from the top, each with the parent that this gives for it.
class Sashes {
  public:
    /// How many parts there will be, two at least.
    Sashes(wxWindow* parent, std::size_t count);

    wxWindow* parentFor(std::size_t part) const;
    /// Once all parts are there.
    void arrange(const std::vector<SashPart>& parts);
    /// To be given a place in the parent's sizer.
    wxWindow* whole() const { return splitters_.front(); }

  private:
    static void keepShares(wxSplitterWindow& splitter, wxWindow& above, wxWindow& below, double share);

    std::vector<wxSplitterWindow*> splitters_;
};

}  // namespace brasquelin
