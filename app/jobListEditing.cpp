#include "app/jobListEditing.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "app/jobList.h"
#include "text/text.h"

namespace brasquelin {

UndoHistory<JobStep> jobHistory;

namespace {

using Lines = std::vector<std::string>;

Jobs jobsFrom(std::size_t first, std::size_t count) {
    Jobs jobs(count);
    std::iota(jobs.begin(), jobs.end(), first);
    return jobs;
}

/// The lines from one job to before another one.
Lines linesBetween(std::size_t begin, std::size_t end) {
    return jobList.lines(begin, end - begin);
}

Lines linesOf(const Jobs& jobs) {
    Lines lines;
    lines.reserve(jobs.size());
    for (const std::size_t job : jobs) lines.emplace_back(jobList.line(job));
    return lines;
}

Jobs make(JobStep step) {
    jobList.apply(step.change);
    Jobs selected = step.selectedAfter;
    const std::size_t bytes = sizeof(step) + step.change.bytes() +
                              (step.selectedBefore.size() + step.selectedAfter.size()) * sizeof(std::size_t);
    jobHistory.add(std::move(step), bytes);
    return selected;
}

/// From all lines between the first and the last that are concerned to the same in another order.
Jobs reorder(std::size_t begin, Lines old, Lines lines, const Jobs& before, Jobs after, std::string_view name) {
    return make({name, {begin, std::move(old), std::move(lines)}, before, std::move(after)});
}

bool isBlank(std::string_view line) {
    return line.find_first_not_of(" \t") == std::string_view::npos;
}

}  // namespace

bool jobListIsWork() {
    return !jobList.empty() && !jobHistory.isSaved();
}

Jobs removeJobs(const Jobs& selected, std::string_view name) {
    if (selected.empty()) return {};
    const std::size_t begin = selected.front();
    LineChange change{begin, linesBetween(begin, selected.back() + 1), {}};
    auto next = selected.begin();
    for (std::size_t i = 0; i < change.removed.size(); ++i) {
        if (*next == begin + i) {
            ++next;
        } else {
            change.inserted.push_back(change.removed[i]);
        }
    }
    const std::size_t left = jobList.size() - selected.size();
    return make({name, std::move(change), selected, left == 0 ? Jobs() : Jobs{std::min(begin, left - 1)}});
}

Jobs duplicateJobs(const Jobs& selected) {
    return insertJobs(selected.back() + 1, linesOf(selected), "Duplicate", selected);
}

Jobs moveJobsUp(const Jobs& selected) {
    const std::size_t begin = selected.front() - 1;
    Lines old = linesBetween(begin, selected.back() + 1);
    Lines lines = old;
    Jobs after;
    for (const std::size_t job : selected) {
        std::swap(lines[job - begin], lines[job - begin - 1]);
        after.push_back(job - 1);
    }
    return reorder(begin, std::move(old), std::move(lines), selected, std::move(after), "Move up");
}

Jobs moveJobsDown(const Jobs& selected) {
    const std::size_t begin = selected.front();
    Lines old = linesBetween(begin, selected.back() + 2);
    Lines lines = old;
    Jobs after;
    for (std::size_t i = selected.size(); i-- > 0;) {
        const std::size_t below = selected[i] - begin;
        std::swap(lines[below], lines[below + 1]);
        after.push_back(selected[i] + 1);
    }
    std::reverse(after.begin(), after.end());
    return reorder(begin, std::move(old), std::move(lines), selected, std::move(after), "Move down");
}

Jobs moveJobs(const Jobs& selected, std::size_t before) {
    if (selected.empty()) return {};
    const std::size_t begin = std::min(before, selected.front());
    const std::size_t end = std::max(before, selected.back() + 1);
    Lines old = linesBetween(begin, end);
    Lines lines;
    Lines behind;
    for (std::size_t job = begin; job < end; ++job) {
        if (std::binary_search(selected.begin(), selected.end(), job)) continue;
        (job < before ? lines : behind).push_back(old[job - begin]);
    }
    Jobs after = jobsFrom(begin + lines.size(), selected.size());
    for (auto& line : linesOf(selected)) lines.push_back(std::move(line));
    std::move(behind.begin(), behind.end(), std::back_inserter(lines));
    if (lines == old) return selected;
    return reorder(begin, std::move(old), std::move(lines), selected, std::move(after), "Move");
}

Jobs insertJobs(std::size_t before, std::vector<std::string> lines, std::string_view name, const Jobs& selectedBefore) {
    if (lines.empty()) return selectedBefore;
    Jobs after = jobsFrom(before, lines.size());
    return make({name, {before, {}, std::move(lines)}, selectedBefore, std::move(after)});
}

Jobs changeJob(std::size_t job, std::string line) {
    if (line == jobList.line(job)) return {job};
    return make({"Edit", {job, jobList.lines(job, 1), {std::move(line)}}, {job}, {job}});
}

void clearJobs() {
    if (jobList.empty()) return;
    make({"Clear JobList", {0, jobList.lines(), {}}, {}, {}});
}

Jobs undoJobStep() {
    const JobStep& step = jobHistory.undo();
    jobList.takeBack(step.change);
    return step.selectedBefore;
}

Jobs redoJobStep() {
    const JobStep& step = jobHistory.redo();
    jobList.apply(step.change);
    return step.selectedAfter;
}

std::vector<std::string> withoutBlank(std::vector<std::string> lines) {
    std::erase_if(lines, isBlank);
    return lines;
}

std::vector<std::string> jobsOfText(std::string_view text) {
    return withoutBlank(splitLines(text));
}

std::string textOfJobs(const Jobs& jobs) {
    if (jobs.empty()) return {};
    std::string text(jobList.line(jobs.front()));
    for (std::size_t i = 1; i < jobs.size(); ++i) text.append("\n").append(jobList.line(jobs[i]));
    return text;
}

}  // namespace brasquelin
