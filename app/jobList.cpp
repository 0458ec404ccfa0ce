#include "app/jobList.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "text/visibleText.h"

namespace brasquelin {

JobList jobList;

JobList::Line JobList::keep(std::string_view text) {
    used_ += text.size();
    return {texts_.add(text).data(), static_cast<std::uint32_t>(text.size()), 0};
}

void JobList::measure() const {
    for (; measured_ < lines_.size(); ++measured_) {
        lines_[measured_].width = static_cast<std::uint32_t>(shownWidth(line(measured_)));
        if (lines_[measured_].width > lines_[longest_].width) longest_ = measured_;
    }
}

std::uint32_t JobList::width(std::size_t index) const {
    measure();
    return lines_[index].width;
}

void JobList::append(std::string_view line) {
    lines_.push_back(keep(line));
    ++revision_;
}

void JobList::clear() {
    lines_ = {};
    texts_ = {};
    used_ = 0;
    measured_ = longest_ = 0;
    ++revision_;
}

void JobList::apply(const LineChange& change) {
    replace(change.position, change.removed.size(), change.inserted);
}

void JobList::takeBack(const LineChange& change) {
    replace(change.position, change.inserted.size(), change.removed);
}

/// In place as far as both are equally long, so that a long list is moved at most once.
void JobList::replace(std::size_t position, std::size_t count, const std::vector<std::string>& lines) {
    measure();
    std::vector<Line> kept;
    kept.reserve(lines.size());
    for (const auto& line : lines) {
        kept.push_back(keep(line));
        kept.back().width = static_cast<std::uint32_t>(shownWidth(line));
    }
    const auto both = static_cast<std::ptrdiff_t>(std::min(count, lines.size()));
    const auto begin = lines_.begin() + static_cast<std::ptrdiff_t>(position);
    const auto end = std::copy(kept.begin(), kept.begin() + both, begin);
    if (count > lines.size()) {
        lines_.erase(end, begin + static_cast<std::ptrdiff_t>(count));
    } else {
        lines_.insert(end, kept.begin() + both, kept.end());
    }
    measured_ = lines_.size();
    giveUnusedBack();
    const auto narrower = [](const Line& left, const Line& right) { return left.width < right.width; };
    longest_ = static_cast<std::size_t>(std::max_element(lines_.begin(), lines_.end(), narrower) - lines_.begin());
    ++revision_;
}

/// When most of the memory holds removed lines.
void JobList::giveUnusedBack() {
    constexpr std::size_t little = 1U << 20U;
    const auto add = [](std::size_t sum, const Line& line) { return sum + line.size; };
    const std::size_t needed = std::accumulate(lines_.begin(), lines_.end(), std::size_t{0}, add);
    if (used_ < 2 * needed + little) return;
    const LineStore before = std::exchange(texts_, {});
    used_ = 0;
    for (auto& line : lines_) line.text = keep({line.text, line.size}).text;
}

std::vector<std::string> JobList::lines(std::size_t begin, std::size_t count) const {
    std::vector<std::string> copies;
    copies.reserve(count);
    for (std::size_t i = begin; i < begin + count; ++i) copies.emplace_back(line(i));
    return copies;
}

std::optional<std::size_t> JobList::longestLine() const {
    if (lines_.empty()) return std::nullopt;
    measure();
    return longest_;
}

}  // namespace brasquelin
