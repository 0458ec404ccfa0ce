// The list control `JobList`: it looks into the job list and holds no lines of its own.
#pragma once

#include <cstdint>

#include "platform/wx/lineList.h"

namespace brasquelin {

class JobListView : public LineList {
  public:
    explicit JobListView(wxWindow* parent);

    /// Shows what the job list holds now. Cheap when nothing has changed.
    void showChanges();

  protected:
    std::size_t lineCount() const override;
    const std::string& line(std::size_t index) const override;
    std::optional<std::size_t> longestLine() const override;

  private:
    std::optional<std::uint64_t> shownRevision_;
};

}  // namespace brasquelin
