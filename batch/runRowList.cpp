#include "batch/runRowList.h"

#include <algorithm>
#include <utility>

#include "batch/runRows.h"
#include "batch/runTexts.h"
#include "platform/wx/colours.h"
#include "platform/wx/pictures.h"
#include "platform/wx/selectedItem.h"
#include "platform/wx/wxText.h"
#include "text/visibleText.h"

namespace brasquelin {

namespace {

enum Column { statusColumn, numberColumn, startColumn, durationColumn, commandColumn };

std::size_t jobOf(long item) {
    return static_cast<std::size_t>(item) + 1;
}

}  // namespace

RunRowList::RunRowList(wxWindow* parent, const RunRows& rows, std::function<void()> selected)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_REPORT | wxLC_VIRTUAL | wxLC_SINGLE_SEL,
                 wxDefaultValidator, "JobRows"),
      rows_(rows) {
    wxFont font = GetFont();
    font.SetFamily(wxFONTFAMILY_TELETYPE);
    SetFont(font);
    wxVector<wxBitmapBundle> signs;
    for (const auto sign :
         {Picture::jobWaiting, Picture::jobRunning, Picture::jobDone, Picture::jobFailed, Picture::jobLeftOut}) {
        signs.push_back(picture(sign, 16));
    }
    SetSmallImages(signs);
    makeColumns();
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        fitColumns();
        event.Skip();
    });
    Bind(wxEVT_LIST_ITEM_SELECTED, [this, selected = std::move(selected)](wxListEvent& event) {
        if (!selecting_) selected();
        event.Skip();
    });
}

void RunRowList::makeColumns() {
    const int sign = FromDIP(32);
    const int gap = 3 * GetCharWidth();
    AppendColumn("Status", wxLIST_FORMAT_LEFT, widthOf("Failed, status 127") + sign + gap);
    AppendColumn("Job no.", wxLIST_FORMAT_RIGHT, widthOf("1000000") + gap);
    AppendColumn("Start", wxLIST_FORMAT_LEFT, widthOf("00:00:00") + gap);
    AppendColumn("Duration", wxLIST_FORMAT_RIGHT, widthOf("00:00:00") + gap);
    AppendColumn("Command");
}

int RunRowList::widthOf(const std::string& text) const {
    return GetTextExtent(toWx(text)).x;
}

/// The command takes what is left of the width, or what its longest line needs. What an earlier run did shows its day.
void RunRowList::fitColumns() {
    if (rows_.size() > 0) {
        const int start = widthOf(startText(rows_, 1)) + 3 * GetCharWidth();
        if (start > GetColumnWidth(startColumn)) SetColumnWidth(startColumn, start);
    }
    int width = GetClientSize().x;
    for (int column = statusColumn; column < commandColumn; ++column) width -= GetColumnWidth(column);
    if (const auto longest = rows_.longestLine()) {
        width = std::max(width, widthOf(shownLine(rows_.row(*longest).line())) + 4 * GetCharWidth());
    }
    if (GetColumnWidth(commandColumn) != width) SetColumnWidth(commandColumn, width);
}

void RunRowList::showChanges() {
    const bool changed = shownRevision_ != rows_.revision();
    shownRevision_ = rows_.revision();
    const auto count = static_cast<long>(rows_.size());
    if (GetItemCount() != count) {
        SetItemCount(count);
        fitColumns();
        Refresh();
    } else if (changed) {
        refreshVisible();
    } else if (const auto running = rows_.runningJob()) {
        refreshDuration(*running);
    }
}

/// Only when it reads differently, so that nothing flickers.
void RunRowList::refreshDuration(std::size_t job) {
    std::string duration = durationText(rows_, job);
    if (duration == shownDuration_) return;
    shownDuration_ = std::move(duration);
    RefreshItem(static_cast<long>(job) - 1);
}

void RunRowList::refreshVisible() {
    const long count = GetItemCount();
    if (count == 0) return;
    const long top = std::clamp(GetTopItem(), 0L, count - 1);
    RefreshItems(top, std::min(top + GetCountPerPage(), count - 1));
}

std::optional<std::size_t> RunRowList::selectedJob() const {
    const long selected = selectedItem(*this);
    if (selected < 0 || jobOf(selected) > rows_.size()) return std::nullopt;
    return jobOf(selected);
}

void RunRowList::selectJob(std::size_t job) {
    const long item = static_cast<long>(job) - 1;
    if (item >= GetItemCount() || item == selectedItem(*this)) return;
    selecting_ = true;
    Select(item);
    Focus(item);  // scrolls, too
    selecting_ = false;
}

void RunRowList::selectJobAt(const wxPoint& place) {
    int flags = 0;
    const long item = HitTest(place, flags);
    if (item == wxNOT_FOUND) return;
    Select(item);
    Focus(item);
}

void RunRowList::keepSelectionVisible() {
    if (const long selected = selectedItem(*this); selected >= 0) EnsureVisible(selected);
}

wxPoint RunRowList::placeOfSelection() const {
    wxRect row;
    const long selected = selectedItem(*this);
    if (selected < 0 || !GetItemRect(selected, row)) return {};
    return wxPoint(0, std::clamp(row.GetBottom(), 0, GetClientSize().y));
}

wxString RunRowList::OnGetItemText(long item, long column) const {
    const std::size_t job = jobOf(item);
    if (job > rows_.size()) return {};
    switch (column) {
        case statusColumn:
            return toWx(statusText(rows_, job));
        case numberColumn:
            return toWx(std::to_string(job));
        case startColumn:
            return toWx(startText(rows_, job));
        case durationColumn:
            return toWx(durationText(rows_, job));
        default:
            return toWx(shownLine(rows_.row(job).line()));
    }
}

int RunRowList::OnGetItemImage(long item) const {
    if (jobOf(item) > rows_.size()) return -1;
    switch (rows_.row(jobOf(item)).state) {
        case JobState::waiting:
            return 0;
        case JobState::running:
            return 1;
        case JobState::done:
            return 2;
        case JobState::failed:
        case JobState::brokenOff:
            return 3;
        case JobState::leftOut:
            return 4;
    }
    return -1;
}

/// What needs the eye stands out: failures in red, the running job in bold.
wxListItemAttr* RunRowList::OnGetItemAttr(long item) const {
    if (jobOf(item) > rows_.size()) return nullptr;
    attribute_ = wxListItemAttr();
    switch (rows_.row(jobOf(item)).state) {
        case JobState::failed:
        case JobState::brokenOff:
            attribute_.SetTextColour(isDark(GetBackgroundColour()) ? wxColour(255, 120, 110) : wxColour(176, 24, 24));
            return &attribute_;
        case JobState::running:
            attribute_.SetFont(GetFont().Bold());
            return &attribute_;
        case JobState::waiting:
        case JobState::leftOut:
            attribute_.SetTextColour(dimmedText(*this));
            return &attribute_;
        case JobState::done:
            break;
    }
    return nullptr;
}

}  // namespace brasquelin
