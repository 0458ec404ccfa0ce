// The job list: finished command lines in the order in which they arrived.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

class JobList {
  public:
    void append(std::string line);
    void clear();

    bool empty() const { return lines_.empty(); }
    std::size_t size() const { return lines_.size(); }
    const std::string& line(std::size_t index) const { return lines_[index]; }
    const std::vector<std::string>& lines() const { return lines_; }

    /// The line of which most characters are shown, for the width of the column; nothing for an empty list.
    std::optional<std::size_t> longestLine() const;
    /// Grows with every change.
    std::uint64_t revision() const { return revision_; }

  private:
    std::vector<std::string> lines_;
    std::size_t longest_ = 0;
    std::size_t longestCount_ = 0;
    std::uint64_t revision_ = 0;
};
extern JobList jobList;

}  // namespace brasquelin
