#include "app/jobListView.h"

#include "app/jobList.h"

namespace brasquelin {

JobListView::JobListView(wxWindow* parent)
    : LineList(parent, "JobList", wxBORDER_NONE, parent->GetClientSize(), Selection::several), filter_(jobList) {
    setHint(
        "Add a profile (Ctrl+P) or a library (Ctrl+L), or drop files here: their jobs are listed, then executed (F5)");
}

void JobListView::showChanges() {
    if (shownRevision_ == jobList.revision()) return;
    shownRevision_ = jobList.revision();
    filter_.update();
    showLines();
}

void JobListView::showOnly(const std::string& text) {
    const Jobs selected = selectedJobs();
    selectLine({});
    filter_.setText(text);
    showLines();
    selectJobs(selected);
}

std::optional<std::size_t> JobListView::selectedJob() const {
    const auto row = selectedLine();
    if (!row) return std::nullopt;
    return filter_.jobOf(*row);
}

void JobListView::selectJobs(const Jobs& jobs) {
    selectLines(filter_.rowsOf(jobs));
}

std::string_view JobListView::line(std::size_t index) const {
    return jobList.line(filter_.jobOf(index));
}

}  // namespace brasquelin
