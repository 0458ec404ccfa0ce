#include "app/jobFilter.h"

#include <algorithm>
#include <utility>

#include "app/jobList.h"
#include "text/text.h"

namespace brasquelin {

void JobFilter::setText(std::string text) {
    if (text == text_) return;
    const bool narrower = hides() && revision_ == list_.revision() && text.find(text_) != std::string::npos;
    text_ = std::move(text);
    if (!narrower) return search();
    std::erase_if(shown_, [this](std::size_t job) { return !findIgnoringCase(list_.line(job), text_); });
}

void JobFilter::update() {
    if (hides() && revision_ != list_.revision()) search();
}

void JobFilter::search() {
    revision_ = list_.revision();
    shown_.clear();
    if (!hides()) return;
    for (std::size_t job = 0; job < list_.size(); ++job) {
        if (findIgnoringCase(list_.line(job), text_)) shown_.push_back(job);
    }
}

std::size_t JobFilter::rowCount() const {
    return hides() ? shown_.size() : list_.size();
}

std::size_t JobFilter::jobOf(std::size_t row) const {
    return hides() ? shown_[row] : row;
}

std::size_t JobFilter::rowOf(std::size_t job) const {
    if (!hides()) return job;
    return static_cast<std::size_t>(std::lower_bound(shown_.begin(), shown_.end(), job) - shown_.begin());
}

Jobs JobFilter::jobsOf(const Jobs& rows) const {
    Jobs jobs(rows.size());
    std::transform(rows.begin(), rows.end(), jobs.begin(), [this](std::size_t row) { return jobOf(row); });
    return jobs;
}

Jobs JobFilter::rowsOf(const Jobs& jobs) const {
    if (!hides()) return jobs;
    Jobs rows;
    for (const std::size_t job : jobs) {
        if (std::binary_search(shown_.begin(), shown_.end(), job)) rows.push_back(rowOf(job));
    }
    return rows;
}

std::optional<std::size_t> JobFilter::longestRow() const {
    const auto longest = list_.longestLine();
    if (!hides() || !longest) return longest;
    const auto row = std::max_element(shown_.begin(), shown_.end(), [this](std::size_t left, std::size_t right) {
        return list_.width(left) < list_.width(right);
    });
    if (row == shown_.end()) return std::nullopt;
    return static_cast<std::size_t>(row - shown_.begin());
}

}  // namespace brasquelin
