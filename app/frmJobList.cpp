#include "app/frmJobList.h"

#include <algorithm>

#include "app/jobList.h"
#include "platform/desktop.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

FrmJobList::FrmJobList(wxWindow* parent)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_VIRTUAL | wxLC_SINGLE_SEL | wxLC_NO_HEADER, wxDefaultValidator, "JobList") {
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

void FrmJobList::showChanges() {
    if (shownRevision_ == jobList.revision()) return;
    shownRevision_ = jobList.revision();
    const long count = static_cast<long>(jobList.size());
    if (count < GetItemCount() && GetFirstSelected() >= 0) Select(GetFirstSelected(), false);
    SetItemCount(count);
    widenColumn();
    Refresh();
}

void FrmJobList::widenColumn() {
    int width = GetClientSize().x;
    if (const auto longest = jobList.longestLine()) {
        const int text = GetTextExtent(toWx(jobList.line(*longest))).x;
        width = std::max(width, text + 4 * GetCharWidth());
    }
    if (GetColumnWidth(0) != width) SetColumnWidth(0, width);
}

std::optional<std::size_t> FrmJobList::selectedLine() const {
    const long selected = GetFirstSelected();
    if (selected < 0 || static_cast<std::size_t>(selected) >= jobList.size()) return std::nullopt;
    return static_cast<std::size_t>(selected);
}

void FrmJobList::selectLineAt(const wxPoint& place) {
    int flags = 0;
    const long item = HitTest(place, flags);
    if (item == wxNOT_FOUND) return;
    Select(item);
    Focus(item);
}

wxPoint FrmJobList::placeOfSelection() const {
    wxRect line;
    const long selected = GetFirstSelected();
    if (selected < 0 || !GetItemRect(selected, line)) return {};
    const int height = GetClientSize().y;
    return wxPoint(0, std::clamp(line.GetBottom(), 0, height));
}

void FrmJobList::copySelected() {
    if (const auto line = selectedLine()) desktop().copyToClipboard(jobList.line(*line));
}

wxString FrmJobList::OnGetItemText(long item, long /*column*/) const {
    const auto index = static_cast<std::size_t>(item);
    return index < jobList.size() ? toWx(jobList.line(index)) : wxString();
}

}  // namespace brasquelin
