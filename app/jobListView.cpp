#include "app/jobListView.h"

#include "app/jobList.h"

namespace brasquelin {

JobListView::JobListView(wxWindow* parent)
    : LineList(parent, "JobList", wxBORDER_NONE, parent->GetClientSize(), Selection::several) {}

void JobListView::showChanges() {
    if (shownRevision_ == jobList.revision()) return;
    shownRevision_ = jobList.revision();
    showLines();
}

std::size_t JobListView::lineCount() const {
    return jobList.size();
}

const std::string& JobListView::line(std::size_t index) const {
    return jobList.line(index);
}

std::optional<std::size_t> JobListView::longestLine() const {
    return jobList.longestLine();
}

}  // namespace brasquelin
