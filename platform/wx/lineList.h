// A list control that looks into lines kept elsewhere, so that a hundred thousand of them cost no time. What would not
// be seen of a line stands there as signs, and a line that goes on beyond the window ends in an ellipsis.
#pragma once

#include <wx/listctrl.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/wx/lineDragging.h"

namespace brasquelin {

class LineList : public wxListView {
  public:
    enum class Selection { one, several };

    /// A list that gets its final size here starts faster than one that is resized.
    LineList(wxWindow* parent, const char* name, long border, const wxSize& size = wxDefaultSize,
             Selection selection = Selection::one);
    ~LineList() override;

    /// Of several selected lines the one that has the keys, where it is among them, else the first.
    std::optional<std::size_t> selectedLine() const;

    /// Selects this line alone and scrolls it into view; nothing deselects.
    void selectLine(std::optional<std::size_t> line);

    /// Selects the line at a place in the control, unless it is one of several selected ones; a place without one
    /// changes nothing.
    void selectLineAt(const wxPoint& place);
    /// Where a menu for the selected line is to open.
    wxPoint placeOfSelection() const;

    /// Sorted. Fast, however many lines there are and are selected.
    std::vector<std::size_t> selectedLines() const;
    std::size_t selectedCount() const { return static_cast<std::size_t>(GetSelectedItemCount()); }
    /// Selects these lines (sorted) instead; the first of them has the keys and comes into view. Where
    /// that would be too slow, with many thousands of lines here and there, only the first is selected.
    void selectLines(const std::vector<std::size_t>& lines);
    void selectAll();
    /// What Ctrl+C does: the selected lines, each on its own.
    virtual void copySelected();

    /// What an empty list says, on one dim line.
    void setHint(std::string hint);

    /// A list has the font of its lines once it was painted or has lines. This gives it now.
    void takeFontOfLines();

    /// From now on the selected lines can be dragged, and what is dragged there dropped.
    void letLinesBeDragged(DragActions actions);

  protected:
    virtual std::size_t lineCount() const = 0;
    virtual std::string_view line(std::size_t index) const = 0;
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
    bool selectFirstSeen();
    void setAllSelected(bool selected);
    void paintHint(wxPaintEvent& event);

    std::string hint_;
    bool hasFontOfLines_ = false;
    int scrolledBy_ = 0;  // pixels to the right, when the rows were drawn
    std::unique_ptr<LineDragging> dragging_;
};

}  // namespace brasquelin
