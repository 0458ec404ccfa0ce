// The list control `JobList`: it looks into the job list and holds no lines of its own.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/jobFilter.h"
#include "platform/wx/lineList.h"

namespace brasquelin {

class JobListView : public LineList {
  public:
    explicit JobListView(wxWindow* parent);

    /// Shows what the job list holds now. Cheap when nothing has changed.
    void showChanges();

    /// Shows only the jobs that hold the text; an empty one shows all. What is selected and still seen stays so.
    void showOnly(const std::string& text);
    const JobFilter& filter() const { return filter_; }

    std::optional<std::size_t> selectedJob() const;
    Jobs selectedJobs() const { return filter_.jobsOf(selectedLines()); }
    /// Selects those of the jobs that are shown.
    void selectJobs(const Jobs& jobs);

  protected:
    std::size_t lineCount() const override { return filter_.rowCount(); }
    std::string_view line(std::size_t index) const override;
    std::optional<std::size_t> longestLine() const override { return filter_.longestRow(); }

  private:
    JobFilter filter_;
    std::optional<std::uint64_t> shownRevision_;
};

}  // namespace brasquelin
