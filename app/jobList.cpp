#include "app/jobList.h"

#include <algorithm>

#include "text/visibleText.h"

namespace brasquelin {

JobList jobList;

namespace {
std::uint32_t widthOf(const std::string& line) {
    return static_cast<std::uint32_t>(shownWidth(line));
}
}  // namespace

void JobList::append(std::string line) {
    widths_.push_back(widthOf(line));
    if (lines_.empty() || widths_.back() > widths_[longest_]) longest_ = lines_.size();
    lines_.push_back(std::move(line));
    ++revision_;
}

void JobList::clear() {
    lines_ = {};
    widths_ = {};
    longest_ = 0;
    ++revision_;
}

void JobList::apply(const LineChange& change) {
    change.applyTo(lines_);
    replaceWidths(change.position, change.removed.size(), change.inserted);
}

void JobList::takeBack(const LineChange& change) {
    change.takeBackFrom(lines_);
    replaceWidths(change.position, change.inserted.size(), change.removed);
}

void JobList::replaceWidths(std::size_t position, std::size_t count, const std::vector<std::string>& lines) {
    std::vector<std::uint32_t> widths(lines.size());
    std::transform(lines.begin(), lines.end(), widths.begin(), widthOf);
    const auto begin = widths_.begin() + static_cast<std::ptrdiff_t>(position);
    const auto at = widths_.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
    widths_.insert(at, widths.begin(), widths.end());
    longest_ = static_cast<std::size_t>(std::max_element(widths_.begin(), widths_.end()) - widths_.begin());
    ++revision_;
}

std::optional<std::size_t> JobList::longestLine() const {
    if (lines_.empty()) return std::nullopt;
    return longest_;
}

}  // namespace brasquelin
