#include "platform/wx/lineList.h"

#include <wx/dcclient.h>
#include <wx/settings.h>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "platform/desktop.h"
#include "platform/wx/colours.h"
#include "platform/wx/selectedItem.h"
#include "platform/wx/wxText.h"
#include "text/visibleText.h"

#ifdef __WXGTK__
#include <wx/selstore.h>

/// The toolkit's own goes through all selected rows, one by one, to tell whether a row is among them: with ten
/// thousands of them a list takes seconds. This one stands in for it where the toolkit is a shared library.
bool wxSelectionStore::IsSelected(unsigned item) const {
    return std::binary_search(m_itemsSel.begin(), m_itemsSel.end(), item) != m_defaultState;
}
#endif

namespace brasquelin {

namespace {

constexpr std::size_t mostSteps = 5000;

using Rows = std::vector<std::size_t>;

/// The rows that are in one of them only.
Rows differenceOf(const Rows& left, const Rows& right) {
    Rows rows;
    std::set_symmetric_difference(left.begin(), left.end(), right.begin(), right.end(), std::back_inserter(rows));
    return rows;
}

}  // namespace

LineList::LineList(wxWindow* parent, const char* name, long border, const wxSize& size, Selection selection)
    : wxListView(
          parent, wxID_ANY, wxDefaultPosition, size,
          wxLC_REPORT | wxLC_VIRTUAL | wxLC_NO_HEADER | border | (selection == Selection::one ? wxLC_SINGLE_SEL : 0),
          wxDefaultValidator, name) {
#ifndef __WXGTK__
    takeFontOfLines();  // is found at once here
#endif
    AppendColumn("");
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        widenColumn();
        event.Skip();
    });
    Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
        followScrolling();
        event.Skip();
    });
    Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
        if (event.GetKeyCode() == 'C' && event.GetModifiers() == wxMOD_CONTROL) return copySelected();
        if (event.GetKeyCode() == WXK_DOWN && selectFirstSeen()) return;
        event.Skip();
    });
}

LineList::~LineList() = default;

/// Some desktops draw the lines in a window of their own.
void LineList::setHint(std::string hint) {
    hint_ = std::move(hint);
    wxWindow* const surface = GetChildren().IsEmpty() ? this : GetChildren().GetFirst()->GetData();
    surface->Bind(wxEVT_PAINT, &LineList::paintHint, this);
}

void LineList::paintHint(wxPaintEvent& event) {
    if (GetItemCount() > 0) return event.Skip();
    wxPaintDC drawing(dynamic_cast<wxWindow*>(event.GetEventObject()));
    drawing.SetBackground(wxBrush(GetBackgroundColour()));
    drawing.Clear();
    drawing.SetFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT));
    drawing.SetTextForeground(dimmedText(*this));
    const int gap = FromDIP(6);
    const int room = GetClientSize().x - 2 * gap;
    drawing.DrawText(wxControl::Ellipsize(toWx(hint_), drawing, wxELLIPSIZE_END, room), gap, gap);
    // With the first line it could be too late: while a menu's choice is worked off, a right click counts twice then.
    if (!hasFontOfLines_) CallAfter(&LineList::takeFontOfLines);
}

/// With equal widths the line with the most characters is the widest. An empty list is shown without the font, which
/// takes a while to be found.
void LineList::takeFontOfLines() {
    if (std::exchange(hasFontOfLines_, true)) return;
    wxFont font = GetFont();
    font.SetFamily(wxFONTFAMILY_TELETYPE);
    SetFont(font);
}

void LineList::showLines() {
    const long count = static_cast<long>(lineCount());
    if (count > 0) takeFontOfLines();
    if (count < GetItemCount()) setAllSelected(false);
    SetItemCount(count);
    widenColumn();
    Refresh();
}

void LineList::widenColumn() {
    int width = GetClientSize().x;
    if (const auto longest = longestLine()) {
        width = std::max(width, textWidth(wholeText(*longest)) + 4 * GetCharWidth());
    }
    if (GetColumnWidth(0) != width) SetColumnWidth(0, width);
}

std::optional<std::size_t> LineList::selectedLine() const {
    const long selected = selectedItem(*this);
    if (selected < 0 || static_cast<std::size_t>(selected) >= lineCount()) return std::nullopt;
    return static_cast<std::size_t>(selected);
}

void LineList::setAllSelected(bool selected) {
    if (GetItemCount() == 0 || (!selected && GetSelectedItemCount() == 0)) return;
    if (HasFlag(wxLC_SINGLE_SEL)) return Select(GetFirstSelected(), selected);
    SetItemState(-1, selected ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
}

void LineList::selectLine(std::optional<std::size_t> line) {
    if (!line) return setAllSelected(false);
    selectLines({*line});
}

void LineList::selectLineAt(const wxPoint& place) {
    int flags = 0;
    const long item = HitTest(place, flags);
    if (item == wxNOT_FOUND) return;
    if (!IsSelected(item)) return selectLine(static_cast<std::size_t>(item));
    Focus(item);
}

std::vector<std::size_t> LineList::selectedLines() const {
    std::vector<std::size_t> lines(selectedCount());
    if (static_cast<int>(lines.size()) == GetItemCount()) {
        std::iota(lines.begin(), lines.end(), 0U);
        return lines;
    }
    long item = -1;
    for (auto& line : lines) line = static_cast<std::size_t>(item = GetNextSelected(item));
    return lines;
}

/// Each row that changes takes its time: a step from what is selected now, from none or from all, whichever is nearest.
void LineList::selectLines(const std::vector<std::size_t>& lines) {
    const auto count = static_cast<std::size_t>(GetItemCount());
    const auto fromNow = differenceOf(selectedLines(), lines).size();
    const bool fromAll = !HasFlag(wxLC_SINGLE_SEL) && count - lines.size() < std::min(fromNow, lines.size());
    if (fromAll || lines.size() < fromNow) setAllSelected(fromAll);
    const Rows steps = differenceOf(selectedLines(), lines);
    if (steps.size() > mostSteps) return selectLine(lines.front());
    for (const std::size_t line : steps) {
        Select(static_cast<long>(line), std::binary_search(lines.begin(), lines.end(), line));
    }
    if (!lines.empty()) Focus(static_cast<long>(lines.front()));  // scrolls, too
}

void LineList::selectAll() {
    setAllSelected(true);
}

void LineList::letLinesBeDragged(DragActions actions) {
    dragging_ = std::make_unique<LineDragging>(*this, std::move(actions));
}

wxPoint LineList::placeOfSelection() const {
    wxRect line;
    const auto selected = selectedLine();
    if (!selected || !GetItemRect(static_cast<long>(*selected), line)) return {};
    const int height = GetClientSize().y;
    return wxPoint(0, std::clamp(line.GetBottom(), 0, height));
}

/// Without a current line GTK would take the key to leave the list. False when a line is selected already.
bool LineList::selectFirstSeen() {
    if (GetItemCount() == 0 || GetSelectedItemCount() > 0) return false;
    selectLine(static_cast<std::size_t>(std::max(0L, GetTopItem())));
    return true;
}

void LineList::copySelected() {
    const auto selected = selectedLines();
    if (selected.empty()) return;
    std::string text(line(selected.front()));
    for (std::size_t i = 1; i < selected.size(); ++i) text.append("\n").append(line(selected[i]));
    desktop().copyToClipboard(text);
}

int LineList::textWidth(const wxString& text) const {
    return GetTextExtent(text).x;
}

int LineList::scrolledBy() const {
    wxRect row;
    return GetItemCount() > 0 && GetItemRect(std::max(0L, GetTopItem()), row) ? std::max(0, -row.x) : 0;
}

/// Where the rows end in an ellipsis depends on it.
void LineList::followScrolling() {
    const int now = scrolledBy();
    if (now == scrolledBy_) return;
    scrolledBy_ = now;
    Refresh();
}

wxString LineList::wholeText(std::size_t index) const {
    return toWx(shownLine(line(index)));
}

wxString LineList::OnGetItemText(long item, long /*column*/) const {
    const auto index = static_cast<std::size_t>(item);
    if (index >= lineCount()) return {};
    const wxString text = wholeText(index);
    const int room = scrolledBy_ + GetClientSize().x - GetCharWidth();
    if (room <= 0 || textWidth(text) <= room) return text;
    wxClientDC measure(const_cast<LineList*>(this));
    measure.SetFont(GetFont());
    return wxControl::Ellipsize(text, measure, wxELLIPSIZE_END, room, wxELLIPSIZE_FLAGS_NONE);
}

}  // namespace brasquelin
