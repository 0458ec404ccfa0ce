#include "app/frmJobList.h"

#include "app/jobList.h"

namespace brasquelin {

FrmJobList::FrmJobList(wxWindow* parent) : LineList(parent, "JobList", wxBORDER_NONE, parent->GetClientSize()) {}

void FrmJobList::showChanges() {
    if (shownRevision_ == jobList.revision()) return;
    shownRevision_ = jobList.revision();
    showLines();
}

std::size_t FrmJobList::lineCount() const {
    return jobList.size();
}

const std::string& FrmJobList::line(std::size_t index) const {
    return jobList.line(index);
}

std::optional<std::size_t> FrmJobList::longestLine() const {
    return jobList.longestLine();
}

}  // namespace brasquelin
