#include "app/jobList.h"

#include "text/text.h"
#include "text/visibleText.h"

namespace brasquelin {

JobList jobList;

void JobList::append(std::string line) {
    const std::size_t count = characterCount(shownLine(line));
    if (lines_.empty() || count > longestCount_) {
        longest_ = lines_.size();
        longestCount_ = count;
    }
    lines_.push_back(std::move(line));
    ++revision_;
}

void JobList::clear() {
    lines_ = {};
    longest_ = longestCount_ = 0;
    ++revision_;
}

std::optional<std::size_t> JobList::longestLine() const {
    if (lines_.empty()) return std::nullopt;
    return longest_;
}

}  // namespace brasquelin
