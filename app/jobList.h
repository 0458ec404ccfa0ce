// The job list: finished command lines in the order in which they arrived.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/lineChange.h"
#include "text/lineStore.h"

namespace brasquelin {

class JobList {
  public:
    void append(std::string_view line);
    void clear();

    /// Makes a change and takes one back. Jobs that were appended since stay behind it.
    void apply(const LineChange& change);
    void takeBack(const LineChange& change);

    bool empty() const { return lines_.empty(); }
    std::size_t size() const { return lines_.size(); }
    /// It lives until the list is changed.
    std::string_view line(std::size_t index) const { return {lines_[index].text, lines_[index].size}; }
    /// A copy of `count` lines; of all.
    std::vector<std::string> lines(std::size_t begin, std::size_t count) const;
    std::vector<std::string> lines() const { return lines(0, size()); }

    /// The line of which most characters are shown, for the width of the column; nothing for an empty list.
    std::optional<std::size_t> longestLine() const;
    /// How many characters of a line are shown.
    std::uint32_t width(std::size_t index) const;
    /// Grows with every change.
    std::uint64_t revision() const { return revision_; }

  private:
    struct Line {
        const char* text;
        std::uint32_t size;
        std::uint32_t width;  // in shown characters, once it was measured
    };

    Line keep(std::string_view text);
    void measure() const;
    void replace(std::size_t position, std::size_t count, const std::vector<std::string>& lines);
    void giveUnusedBack();

    mutable std::deque<Line> lines_;
    mutable std::size_t measured_ = 0;  // lines; nobody asks for widths where there is no window
    LineStore texts_;
    std::size_t used_ = 0;  // bytes of the texts, those of removed lines, too
    mutable std::size_t longest_ = 0;
    std::uint64_t revision_ = 0;
};
extern JobList jobList;

}  // namespace brasquelin
