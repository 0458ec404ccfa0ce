#include "app/jobListEditing.h"

#include <algorithm>
#include <functional>
#include <random>
#include <set>

#include "app/batchFile.h"
#include "app/jobCommands.h"
#include "app/jobFilter.h"
#include "app/jobList.h"
#include "app/openFile.h"
#include "app/startUp.h"
#include "support/programTest.h"

namespace brasquelin {
namespace {

using Lines = std::vector<std::string>;

class JobListEditing : public ProgramTest {
  protected:
    JobListEditing() { resetTables(); }
    ~JobListEditing() override { resetTables(); }

    static void list(const Lines& lines) {
        resetTables();
        for (const auto& line : lines) jobList.append(line);
    }
};

TEST_F(JobListEditing, EachCommandDoesItsWorkAndSelectsWhatItConcerned) {
    struct Case {
        std::function<Jobs()> command;
        Lines lines;
        Jobs selected;
    };
    const std::vector<Case> cases{
        {[] {
             return removeJobs({1, 3});
         },
         {"a", "c", "e"},
         {1}},
        {[] {
             return removeJobs({3, 4});
         },
         {"a", "b", "c"},
         {2}},
        {[] {
             return removeJobs({0, 1, 2, 3, 4});
         },
         {},
         {}},
        {[] {
             return duplicateJobs({0, 2});
         },
         {"a", "b", "c", "a", "c", "d", "e"},
         {3, 4}},
        {[] {
             return moveJobsUp({1, 2, 4});
         },
         {"b", "c", "a", "e", "d"},
         {0, 1, 3}},
        {[] {
             return moveJobsDown({0, 1, 3});
         },
         {"c", "a", "b", "e", "d"},
         {1, 2, 4}},
        {[] {
             return moveJobs({0, 3}, 2);
         },
         {"b", "a", "d", "c", "e"},
         {1, 2}},
        {[] {
             return moveJobs({0, 1}, 5);
         },
         {"c", "d", "e", "a", "b"},
         {3, 4}},
        {[] {
             return moveJobs({3, 4}, 0);
         },
         {"d", "e", "a", "b", "c"},
         {0, 1}},
        {[] { return insertJobs(1, jobsOfText("x\r\n \n\ny"), "Paste"); }, {"a", "x", "y", "b", "c", "d", "e"}, {1, 2}},
        {[] { return changeJob(4, "longer"); }, {"a", "b", "c", "d", "longer"}, {4}},
    };
    const Lines first{"a", "b", "c", "d", "e"};
    for (const auto& [command, lines, selected] : cases) {
        list(first);
        EXPECT_EQ(selected, command());
        EXPECT_EQ(lines, jobList.lines());
        EXPECT_EQ(!lines.empty(), jobListIsWork());
        jobList.append("from a profile");
        undoJobStep();
        Lines back = first;
        back.emplace_back("from a profile");
        EXPECT_EQ(back, jobList.lines());
        EXPECT_FALSE(jobListIsWork());
        EXPECT_EQ(selected, redoJobStep());
        EXPECT_EQ("from a profile", jobList.lines().back());
    }
    list(first);
    EXPECT_EQ(Jobs({1, 2}), moveJobs({1, 2}, 3));
    EXPECT_EQ(Jobs{0}, changeJob(0, "a"));
    EXPECT_FALSE(jobHistory.canUndo()) << "what changes nothing is no step";
}

/// Any of the commands on any of the jobs.
void editAtRandom(std::mt19937& random) {
    const auto below = [&](std::size_t n) { return static_cast<std::size_t>(random()) % n; };
    Jobs some;
    for (std::size_t job = 0; job < jobList.size(); ++job) {
        if (below(4) == 0) some.push_back(job);
    }
    const std::string text(1 + below(20), static_cast<char>('a' + below(26)));
    const std::size_t command = some.empty() ? 0 : below(8);
    if (command == 0) insertJobs(below(jobList.size() + 1), {text, "x", text}, "Paste");
    if (command == 1) removeJobs(some);
    if (command == 2) duplicateJobs({some.front()});
    if (command == 3 && some.front() > 0) moveJobsUp(some);
    if (command == 4 && some.back() + 1 < jobList.size()) moveJobsDown(some);
    if (command == 5) moveJobs(some, below(jobList.size() + 1));
    if (command == 6) changeJob(some.front(), text);
    if (command == 7 && below(5) == 0) clearJobs();
}

TEST_F(JobListEditing, RandomStepsLeadBackAndForthAndKeepWhatProfilesAppend) {
    std::mt19937 random(11);
    for (int round = 0; round < 20; ++round) {
        list({"first", "second"});
        Lines appended;
        for (int i = 0; i < 200; ++i) {
            editAtRandom(random);
            if (jobHistory.canUndo() && random() % 8 == 0) undoJobStep();
            if (random() % 20 != 0) continue;
            appended.push_back("profile " + std::to_string(i));
            jobList.append(appended.back());
        }
        const Lines last = jobList.lines();
        std::size_t steps = 0;
        for (; jobHistory.canUndo(); ++steps) undoJobStep();
        Lines expected{"first", "second"};
        expected.insert(expected.end(), appended.begin(), appended.end());
        ASSERT_EQ(expected, jobList.lines());
        for (; steps > 0; --steps) redoJobStep();
        ASSERT_EQ(last, jobList.lines());
        std::size_t longest = 0;
        for (const auto& line : last) longest = std::max(longest, line.size());
        const auto longestLine = jobList.longestLine();
        ASSERT_EQ(longest, longestLine ? jobList.line(*longestLine).size() : 0U);
    }
}

TEST_F(JobListEditing, ClearingByHandCanBeUndone) {
    list({"a", "b"});
    clearJobList();
    EXPECT_FALSE(jobListIsWork());
    EXPECT_EQ("&Undo Clear JobList", captionOf(jobCommands()[0]));
    undoJobStep();
    EXPECT_EQ((Lines{"a", "b"}), jobList.lines());
    resetTables();
    EXPECT_FALSE(jobHistory.canRedo());
}

TEST_F(JobListEditing, ACommandIsOfferedWhereItCanDoSomething) {
    using enum JobCommandKind;
    list({"a", "b", "c"});
    const auto expectOffered = [](const Jobs& jobs, bool someAreHidden, std::set<JobCommandKind> expected) {
        const JobSelection selection{jobs, someAreHidden};
        expected.insert({paste, selectAll, find, open, saveAs});
        for (const auto& command : jobCommands()) {
            const auto kind = command.kind;
            EXPECT_EQ(expected.contains(kind), isEnabled(kind, selection)) << command.caption;
            runState.running = true;
            const bool isHarmless = kind == copy || kind == selectAll || kind == find;
            EXPECT_EQ(isHarmless && expected.contains(kind), isEnabled(kind, selection)) << command.caption;
            runState.running = false;
        }
    };
    expectOffered({}, false, {});
    expectOffered({0}, false, {edit, duplicate, cut, copy, remove, moveDown});
    expectOffered({1, 2}, false, {duplicate, cut, copy, remove, moveUp});
    expectOffered({1}, true, {edit, duplicate, cut, copy, remove});
    list({std::string(100'000, 'x')});
    EXPECT_FALSE(isEnabled(edit, {{0}, false})) << "no box takes it";
}

TEST_F(JobListEditing, TheClipboardAndTheEditBoxTakeLinesApart) {
    using enum JobCommandKind;
    list({"a", "b"});
    runJobCommand(cut, {{0, 1}});
    EXPECT_EQ("a\nb", desktop_.clipboard);
    desktop_.clipboard += "\r\nc\n";
    EXPECT_EQ(Jobs({0, 1, 2}), runJobCommand(paste, {}));
    EXPECT_EQ(std::nullopt, runJobCommand(edit, {{1}})) << "cancelled";
    answerText("two\nlines");
    runJobCommand(edit, {{1}});
    EXPECT_EQ((Lines{"a", "two lines", "c"}), jobList.lines());
}

TEST_F(JobListEditing, AFilterShowsTheJobsThatHoldAText) {
    JobFilter filter(jobList);
    list({"Alpha", "beta", "ALPHABET", "gamma"});
    EXPECT_EQ(4U, filter.rowCount());
    filter.setText("alpha");
    EXPECT_EQ(2U, filter.rowCount());
    EXPECT_EQ(2U, filter.jobOf(1));
    EXPECT_EQ(1U, filter.longestRow());
    EXPECT_EQ(Jobs{1}, filter.rowsOf({1, 2, 3}));
    EXPECT_EQ(Jobs({0, 2}), filter.jobsOf({0, 1}));
    filter.setText("alphab");
    EXPECT_EQ(Jobs{2}, filter.jobsOf({0}));
    changeJob(0, "xAlphaB");
    filter.update();
    EXPECT_EQ(2U, filter.rowCount());
    filter.setText("et");
    EXPECT_EQ(Jobs({1, 2}), filter.jobsOf({0, 1})) << "another text, not a narrower one";
    filter.setText("nowhere");
    EXPECT_EQ(0U, filter.rowCount());
    EXPECT_EQ(std::nullopt, filter.longestRow());
    filter.setText("");
    EXPECT_EQ(4U, filter.rowCount());
}

}  // namespace
}  // namespace brasquelin
