// The job list: finished command lines in the order in which they arrived.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "text/lineChange.h"

namespace brasquelin {

class JobList {
  public:
    void append(std::string line);
    void clear();

    /// Makes a change and takes one back. Jobs that were appended since stay behind it.
    void apply(const LineChange& change);
    void takeBack(const LineChange& change);

    bool empty() const { return lines_.empty(); }
    std::size_t size() const { return lines_.size(); }
    const std::string& line(std::size_t index) const { return lines_[index]; }
    const std::vector<std::string>& lines() const { return lines_; }

    /// The line of which most characters are shown, for the width of the column; nothing for an empty list.
    std::optional<std::size_t> longestLine() const;
    /// How many characters of a line are shown.
    std::uint32_t width(std::size_t index) const { return widths_[index]; }
    /// Grows with every change.
    std::uint64_t revision() const { return revision_; }

  private:
    void replaceWidths(std::size_t position, std::size_t count, const std::vector<std::string>& lines);

    std::vector<std::string> lines_;
    std::vector<std::uint32_t> widths_;  // of the lines, in shown characters
    std::size_t longest_ = 0;
    std::uint64_t revision_ = 0;
};
extern JobList jobList;

}  // namespace brasquelin
