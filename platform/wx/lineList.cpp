#include "platform/wx/lineList.h"

#include <wx/dcclient.h>

#include <algorithm>

#include "platform/desktop.h"
#include "platform/wx/wxText.h"
#include "text/visibleText.h"

namespace brasquelin {

LineList::LineList(wxWindow* parent, const char* name, long border, const wxSize& size)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, size,
                 wxLC_REPORT | wxLC_VIRTUAL | wxLC_SINGLE_SEL | wxLC_NO_HEADER | border, wxDefaultValidator, name) {
    // With equal widths the line with the most characters is the widest.
    wxFont font = GetFont();
    font.SetFamily(wxFONTFAMILY_TELETYPE);
    SetFont(font);
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

void LineList::showLines() {
    const long count = static_cast<long>(lineCount());
    if (count < GetItemCount() && GetFirstSelected() >= 0) Select(GetFirstSelected(), false);
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
    const long selected = GetFirstSelected();
    if (selected < 0 || static_cast<std::size_t>(selected) >= lineCount()) return std::nullopt;
    return static_cast<std::size_t>(selected);
}

void LineList::selectLine(std::optional<std::size_t> line) {
    if (!line) {
        if (GetFirstSelected() >= 0) Select(GetFirstSelected(), false);
        return;
    }
    const long item = static_cast<long>(*line);
    Select(item);
    Focus(item);  // scrolls, too
}

void LineList::selectLineAt(const wxPoint& place) {
    int flags = 0;
    const long item = HitTest(place, flags);
    if (item == wxNOT_FOUND) return;
    Select(item);
    Focus(item);
}

wxPoint LineList::placeOfSelection() const {
    wxRect line;
    const long selected = GetFirstSelected();
    if (selected < 0 || !GetItemRect(selected, line)) return {};
    const int height = GetClientSize().y;
    return wxPoint(0, std::clamp(line.GetBottom(), 0, height));
}

/// Without a current line GTK would take the key to leave the list. False when a line is selected already.
bool LineList::selectFirstSeen() {
    if (GetItemCount() == 0 || GetFirstSelected() >= 0) return false;
    selectLine(static_cast<std::size_t>(std::max(0L, GetTopItem())));
    return true;
}

void LineList::copySelected() {
    if (const auto selected = selectedLine()) desktop().copyToClipboard(line(*selected));
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
