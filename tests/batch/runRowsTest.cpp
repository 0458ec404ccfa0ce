#include "batch/runRows.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "batch/runPreferences.h"
#include "batch/runTexts.h"
#include "platform/clock.h"
#include "support/fakeProcesses.h"
#include "support/scratchDirectory.h"

namespace brasquelin {
namespace {

using Kind = RunMessageKind;

class RunRowsTest : public testing::Test {
  protected:
    RunRowsTest() { setClock(&clock); }
    ~RunRowsTest() override { setClock(nullptr); }

    void tell(Kind kind, const std::string& text = {}) {
        RunMessage message{kind};
        message.text = text;
        rows.take(message);
    }
    void list(int jobs, Kind then = Kind::ready) {
        tell(Kind::title, " Tool");
        tell(Kind::batchFile, "/x/brasquelin.bat");
        for (int i = 1; i <= jobs; ++i) tell(Kind::job, "job " + std::to_string(i));
        if (then != Kind::job) tell(then);
    }
    void start(std::size_t job) { rows.take({Kind::started, job, 1'000, 0, 10 * job}); }
    void end(std::size_t job, int exitCode = 0, int signal = 0, Kind kind = Kind::ended) {
        rows.take({kind, job, 1'000, 2'500, 10 * job + 5, exitCode, signal});
    }
    void run(std::size_t job, int exitCode = 0, int signal = 0) {
        start(job);
        clock.now += 2'500;
        end(job, exitCode, signal);
    }
    Lines states() const {
        Lines texts;
        for (std::size_t job = 1; job <= rows.size(); ++job) texts.push_back(statusText(rows, job));
        return texts;
    }

    FakeClock clock;
    RunRows rows;
};

TEST_F(RunRowsTest, ARunIsToldAsItGoes) {
    EXPECT_EQ("Brasquelin", titleText(rows));
    list(5);
    EXPECT_EQ("0 % - 0 of 5 - Tool", titleText(rows));
    EXPECT_EQ("0 of 5 jobs: 0 done, 5 waiting", progressText(rows));
    run(1);
    run(2, 3);
    run(3, 0, 9);
    start(4);
    clock.now += 500;
    EXPECT_EQ((Lines{"Done", "Failed, status 3", "Failed, signal 9", "Running", "Waiting"}), states());
    EXPECT_EQ(4U, rows.runningJob());
    EXPECT_EQ("2.5 s", durationText(rows, 1));
    EXPECT_EQ("0.5 s", durationText(rows, 4));
    EXPECT_EQ("", durationText(rows, 5));
    EXPECT_EQ("", startText(rows, 5));
    EXPECT_EQ(19U, startText(rows, 1).size());  // long ago: with its day
    EXPECT_EQ("60 % - 3 of 5 - Tool", titleText(rows));
    EXPECT_EQ("3 of 5 jobs: 1 done, 2 failed, 1 waiting   22.5 a minute   4 s left", progressText(rows));
    clock.now += 22'000;  // longer than the others: those that wait are likely to be so, too
    EXPECT_NE(std::string::npos, progressText(rows).find("   7 s left")) << progressText(rows);
    clock.now -= 22'000;
    end(4);
    run(5);
    tell(Kind::finished, std::string(nameOf(RunOutcome::complete)));
    EXPECT_EQ("2 failed - 5 of 5 - Tool", titleText(rows));
    EXPECT_EQ("The run has ended: 3 of 5 jobs done, 2 failed.", endText(rows));
    clock.now += 60'000;
    EXPECT_EQ("5 of 5 jobs: 3 done, 2 failed   28.6 a minute   10 s", progressText(rows));
    EXPECT_EQ((std::vector<std::size_t>{2, 3}), rows.failedJobs());
    EXPECT_EQ((std::vector<std::size_t>{4, 5}), rows.jobsFrom(4));
}

TEST_F(RunRowsTest, WhatFailedRunsAgainInTheSameRows) {
    list(3);
    run(1);
    run(2, 1);
    run(3, 1);
    tell(Kind::finished, "complete");
    EXPECT_EQ("2-3", rows.runJobs(rows.failedJobs()).text);
    EXPECT_EQ((Lines{"Done", "Waiting", "Waiting"}), states());
    EXPECT_TRUE(rows.isRunning());
    EXPECT_EQ("33 % - 1 of 3 - Tool", titleText(rows));
    run(2);
    run(3);
    tell(Kind::finished, "complete");
    EXPECT_EQ("All 3 jobs are done.", endText(rows));
    EXPECT_EQ("Done - 3 of 3 - Tool", titleText(rows));
    Lines told;
    rows.tellAboutRun([&told](const RunMessage& message) { told.push_back(message.text); });
    ASSERT_EQ(7U, told.size());
    EXPECT_EQ("/x/brasquelin.bat", told[1]);
    EXPECT_EQ("job 3", told[6]);
}

TEST_F(RunRowsTest, AnEndBeforeTheLastJobLeavesTheRestOut) {
    const std::pair<const char*, const char*> cases[] = {
        {"stopped", "Stopped: "},
        {"first-failure", "Stopped at the first failure: "},
        {"shell-ended", "A job has ended the shell, and with it the run: "},
        {nullptr, "The program that ran the jobs is gone: "},  // the link has closed
    };
    for (const auto& [outcome, cause] : cases) {
        rows = RunRows();
        list(3);
        run(1);
        start(2);
        if (outcome) tell(Kind::finished, outcome);
        rows.runnerGone();
        EXPECT_EQ((Lines{"Done", "Broken off", "Left out"}), states());
        EXPECT_EQ(cause + std::string("1 of 3 jobs done, 1 failed, 1 left out."), endText(rows));
        EXPECT_EQ((std::vector<std::size_t>{2, 3}), rows.openJobs());
    }
    EXPECT_EQ("Broken off - 2 of 3 - Tool", titleText(rows));
    rows = RunRows();
    tell(Kind::ready);
    tell(Kind::finished, "complete");
    EXPECT_EQ("The batch file holds no jobs.", endText(rows));
    rows = RunRows();
    rows.runnerGone();  // before it said anything
    EXPECT_EQ("The program that ran the jobs is gone: 0 of 0 jobs done.", endText(rows));
}

TEST_F(RunRowsTest, AnEarlierRunGoesOnOrStartsOver) {
    list(4, Kind::job);
    end(1, 0, 0, Kind::earlierEnd);
    end(2, 7, 0, Kind::earlierEnd);
    tell(Kind::mayResume);
    EXPECT_EQ(RunPhase::asking, rows.phase());
    EXPECT_EQ((Lines{"Done", "Failed, status 7", "Waiting", "Waiting"}), states());
    EXPECT_EQ("2.5 s", durationText(rows, 1));
    EXPECT_EQ(
        "An earlier run of 'brasquelin.bat' was not finished: 1 of 4 jobs have ended well, 3 are left.\n"
        "Go on where it stopped?",
        resumeQuestion(rows));
    EXPECT_EQ("2-4", rows.runJobs(rows.openJobs()).text);
    EXPECT_EQ((Lines{"Done", "Waiting", "Waiting", "Waiting"}), states());
    EXPECT_EQ("1-4", rows.runJobs(rows.jobsFrom(1)).text);
    EXPECT_EQ(4U, rows.counts().waiting);

    // A runner that goes on by itself tells the same without asking.
    rows = RunRows();
    list(2, Kind::job);
    end(1, 0, 0, Kind::earlierEnd);
    tell(Kind::ready);
    EXPECT_EQ((Lines{"Done", "Waiting"}), states());
    end(2);
    tell(Kind::finished, "stopped");  // nothing was left
    EXPECT_EQ("All 2 jobs are done.", endText(rows));
}

TEST_F(RunRowsTest, DurationsAreShort) {
    const std::pair<std::uint64_t, const char*> cases[] = {
        {0, "0.0 s"}, {9'999, "9.9 s"}, {10'000, "10 s"}, {61'000, "1:01"}, {3'600'000 * 30, "30:00:00"}};
    for (const auto& [time, text] : cases) EXPECT_EQ(text, durationInWords(time));
}

TEST_F(RunRowsTest, ThatTheWindowClosesIsRemembered) {
    const ScratchDirectory directory;
    const std::string file = directory.write("run.ini", "Other=1\n");
    EXPECT_FALSE(closesWhenWell(file));
    setClosesWhenWell(file, true);
    EXPECT_TRUE(closesWhenWell(file));
    setClosesWhenWell(file, false);
    EXPECT_FALSE(closesWhenWell(file));
    EXPECT_EQ("Other=1\r\nCloseWhenWell=0\r\n", directory.read("run.ini"));
    EXPECT_FALSE(closesWhenWell(directory / "none"));
}

}  // namespace
}  // namespace brasquelin
