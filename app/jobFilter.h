// Which jobs the list shows: all, or those that hold a text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "app/jobListEditing.h"

namespace brasquelin {

class JobList;

/// Rows are what is shown, jobs what the list holds; both count from 0.
class JobFilter {
  public:
    explicit JobFilter(const JobList& list) : list_(list) {}

    /// In any letter case; an empty text shows all.
    void setText(std::string text);
    bool hides() const { return !text_.empty(); }
    /// Takes in what has become of the list. Cheap when nothing has.
    void update();

    std::size_t rowCount() const;
    std::size_t jobOf(std::size_t row) const;
    /// The row of the job; for a hidden one that of the next job shown. `rowCount` behind them all.
    std::size_t rowOf(std::size_t job) const;
    Jobs jobsOf(const Jobs& rows) const;
    /// Those of the jobs that are shown.
    Jobs rowsOf(const Jobs& jobs) const;
    /// The longest of the lines shown, as a row.
    std::optional<std::size_t> longestRow() const;

  private:
    void search();

    const JobList& list_;
    std::string text_;
    Jobs shown_;
    std::optional<std::uint64_t> revision_;  // of the list that was searched
};

}  // namespace brasquelin
