// A list control that looks into lines kept elsewhere, so that a hundred thousand of them cost no time.
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
    /// The line with the most characters, for the width of the column; nothing without lines.
    virtual std::optional<std::size_t> longestLine() const = 0;

    /// The lines have changed. The scroll position stays where there are still enough of them.
    void showLines();

    wxString OnGetItemText(long item, long column) const override;

  private:
    void widenColumn();
    void copySelected();
};

}  // namespace brasquelin
