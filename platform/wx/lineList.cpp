#include "platform/wx/lineList.h"

#include <algorithm>

#include "platform/desktop.h"
#include "platform/wx/wxText.h"

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
    Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
        if (event.GetKeyCode() == 'C' && event.GetModifiers() == wxMOD_CONTROL) return copySelected();
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
        const int text = GetTextExtent(OnGetItemText(static_cast<long>(*longest), 0)).x;
        width = std::max(width, text + 4 * GetCharWidth());
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

void LineList::copySelected() {
    if (const auto selected = selectedLine()) desktop().copyToClipboard(line(*selected));
}

wxString LineList::OnGetItemText(long item, long /*column*/) const {
    const auto index = static_cast<std::size_t>(item);
    return index < lineCount() ? toWx(line(index)) : wxString();
}

}  // namespace brasquelin
