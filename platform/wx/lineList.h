// A list control that looks into lines kept elsewhere, so that a hundred thousand of them cost no time. What would not
// be seen of a line stands there as signs, and a line that goes on beyond the window ends in an ellipsis.
#pragma once

#include <wx/listctrl.h>

#include <optional>
#include <string>

namespace brasquelin {

class LineList : public wxListView {
  public:
    /// A list that gets its final size here starts faster than one that is resized.
    LineList(wxWindow* parent, const char* name, long border, const wxSize& size = wxDefaultSize);

    std::optional<std::size_t> selectedLine() const;

    /// Selects a line and scrolls it into view; nothing deselects.
    void selectLine(std::optional<std::size_t> line);

    /// Selects the line at a place in the control; a place without one changes nothing.
    void selectLineAt(const wxPoint& place);
    /// Where a menu for the selected line is to open.
    wxPoint placeOfSelection() const;

  protected:
    virtual std::size_t lineCount() const = 0;
    virtual const std::string& line(std::size_t index) const = 0;
    /// The line of which most characters are shown, for the width of the column; nothing without lines.
    virtual std::optional<std::size_t> longestLine() const = 0;

    /// The lines have changed. The scroll position stays where there are still enough of them.
    void showLines();

    /// What the row shows where there is room for it.
    virtual wxString wholeText(std::size_t index) const;

  private:
    wxString OnGetItemText(long item, long column) const final;
    int textWidth(const wxString& text) const;
    int scrolledBy() const;
    void followScrolling();
    void widenColumn();
    void copySelected();
    bool selectFirstSeen();

    int scrolledBy_ = 0;  // pixels to the right, when the rows were drawn
};

}  // namespace brasquelin
