// The list of problems: it looks into what was found in the document.
#pragma once

#include "editor/problems.h"
#include "platform/wx/lineList.h"

namespace brasquelin {

/// What a problem is drawn with on this window, and on which ground a line stands that has one.
wxColour colourOf(Severity severity, const wxWindow& window);
wxColour groundOf(Severity severity, const wxWindow& window);

class ProblemList : public LineList {
  public:
    explicit ProblemList(wxWindow* parent);

    /// Shows the problems that were found last.
    void showProblems();

  protected:
    std::size_t lineCount() const override;
    std::string_view line(std::size_t index) const override;
    std::optional<std::size_t> longestLine() const override;
    wxItemAttr* OnGetItemAttr(long item) const override;

  private:
    mutable wxItemAttr look_;
};

}  // namespace brasquelin
