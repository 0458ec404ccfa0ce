// A run with a shell that only acts, and what is kept of it.
#include "batch/batchRunner.h"

#include <gtest/gtest.h>

#include <deque>

#include "support/scratchDirectory.h"
#include "text/text.h"

namespace brasquelin {
namespace {

/// Says what a script of the test says; the token is read from the script that the runner has written.
class FakeShell : public JobShell {
  public:
    FakeShell(const ShellFiles& files, std::deque<std::string> pieces, ProcessEnd end)
        : pieces_(std::move(pieces)), end_(end) {
        const std::string script = bytesOf(fromUtf8(files.script));
        const auto mark = script.find('\x1e');
        mark_ = script.substr(mark, script.find(' ', mark) + 1 - mark);
    }
    /// "<" stands for the mark.
    bool read(std::string& bytes, std::uint32_t /*milliseconds*/) override {
        if (pieces_.empty()) return false;
        bytes += replaceAll(pieces_.front(), "<", mark_);
        pieces_.pop_front();
        return true;
    }
    void end() override { pieces_.clear(); }
    ProcessEnd ended() const override { return end_; }
    void leave(const std::string& /*outputFile*/) override {}

  private:
    std::deque<std::string> pieces_;
    ProcessEnd end_;
    std::string mark_;
};

class Runner : public testing::Test {
  protected:
    RunPlan plan(std::vector<std::string> jobs, std::vector<std::size_t> chosen) {
        scratch.write("x.bat", {});
        RunPlan made;
        made.jobs = std::move(jobs);
        made.chosen = std::move(chosen);
        made.files = claimRunFiles(scratch / "x.bat");
        return made;
    }
    /// Runs it; "started 1", "ended 1 status 0", ... and how it ended.
    std::string run(RunPlan planned, std::deque<std::string> pieces, ProcessEnd end = {},
                    const std::function<void(BatchRunner&)>& behindFirstPiece = {}) {
        std::string told;
        RunSinks sinks;
        sinks.output = [this](std::string_view text) { output += text; };
        sinks.tell = [&](const RunMessage& message) {
            if (message.kind == RunMessageKind::started) told += "started " + std::to_string(message.job) + "\n";
            if (message.kind == RunMessageKind::finished) told += message.text;
            if (message.kind != RunMessageKind::ended) return;
            told += "ended " + std::to_string(message.job) + " " + std::to_string(message.exitCode) + "/" +
                    std::to_string(message.signal) + "\n";
        };
        BatchRunner runner(std::move(planned), sinks, [&](const ShellFiles& files, const std::string&) {
            return std::make_unique<FakeShell>(files, std::move(pieces), end);
        });
        if (behindFirstPiece && runner.step(0)) behindFirstPiece(runner);
        while (runner.step(0)) {
        }
        return told;
    }
    std::vector<JobLogEntry> log() const { return parseJobLog(scratch.read("x.joblog")); }

    ScratchDirectory scratch;
    std::string output;
};

TEST_F(Runner, TellsWhatEachJobPrintsAndHowItEnds) {
    const std::string told =
        run(plan({"one", "two", "three"}, {1, 2, 3}), {"a", "b\n\x1e no mark\n<1", " 0\r\nc<2 7\n", "d\n<", "3 0\n"});
    EXPECT_EQ(told, "started 1\nended 1 0/0\nstarted 2\nended 2 7/0\nstarted 3\nended 3 0/0\ncomplete");
    EXPECT_EQ(output, "one\nab\n\x1e no mark\ntwo\ncthree\nd\n");
    EXPECT_EQ(scratch.read("x.output"), output);
    ASSERT_EQ(log().size(), 3U);
    EXPECT_EQ(log()[1].command, "two");
    EXPECT_EQ(log()[1].exitCode, 7);
    EXPECT_EQ(log()[0].outputSize, 13U);
    EXPECT_FALSE(std::filesystem::exists(fromUtf8(scratch / "x.joblog.run")));
}

TEST_F(Runner, EndsAsTheShellAndTheUserWant) {
    // The shell was ended by a line, or from outside.
    EXPECT_EQ(run(plan({"one", "exit 3", "three"}, {1, 2, 3}), {"<1 0\n"}, {3, 0}),
              "started 1\nended 1 0/0\nstarted 2\nended 2 3/0\nshell-ended");
    EXPECT_EQ(run(plan({"one", "two"}, {1, 2}), {"<1 0\n"}, {0, 9}),
              "started 1\nended 1 0/0\nstarted 2\nended 2 0/9\ncomplete");
    // It begins no further line.
    EXPECT_EQ(run(plan({"one", "two"}, {1, 2}), {"<1 7 last\n"}), "started 1\nended 1 7/0\nfirst-failure");
    EXPECT_EQ(run(plan({"one", "two", "three"}, {1, 2, 3}), {"x", "<1 0\n<2 0 last\n"}, {},
                  [](BatchRunner& runner) { runner.stopAfterJob(); }),
              "started 1\nended 1 0/0\nstarted 2\nended 2 0/0\nstopped");
    EXPECT_EQ(run(plan({"one", "two"}, {1, 2}), {"x", "<1 0\n"}, {}, [](BatchRunner& runner) { runner.stopNow(); }),
              "started 1\nended 1 0/15\nstopped");
    // A line that leads past others, and one that is joined to the next.
    EXPECT_EQ(run(plan({"one", "two", "three"}, {1, 2, 3}), {"<1 0\n<3 5\n"}),
              "started 1\nended 1 0/0\nstarted 2\nended 2 5/0\nstarted 3\nended 3 5/0\ncomplete");
}

TEST_F(Runner, GoesOnWhereARunWasBrokenOff) {
    const std::vector<std::string> jobs{"one", "cd sub", "three", "four"};
    RunPlan next = plan(jobs, {});
    // Killed behind the third: the shell has noted more than was logged.
    scratch.write("x.joblog", std::string(jobLogHeader) + encode({.job = 1, .command = "one"}) +
                                  encode({.job = 2, .command = "cd sub"}));
    scratch.write("x.joblog.run/ended", "log " + std::to_string(jobLogHeader.size()) + "\n1 0\n2 0\n3 0\n4 1\n4");
    const EarlierRun earlier = readEarlierRun(next.files, jobs);
    EXPECT_FALSE(isUnfinished(earlier, jobs.size()));
    next.chosen = jobsLeft(earlier, jobs.size());
    next.fresh = false;
    EXPECT_EQ(next.chosen, std::vector<std::size_t>{4});
    const RunFiles files = next.files;
    EXPECT_EQ(run(std::move(next), {"<4 0\n"}), "started 4\nended 4 0/0\ncomplete");
    EXPECT_EQ(jobsLeft(earlierRunOf(jobs, log()), jobs.size()), std::vector<std::size_t>{});
    // Another list, and a line that was broken off.
    EXPECT_TRUE(earlierRunOf({"one", "two"}, log()).empty());
    scratch.write("x.joblog", scratch.read("x.joblog") + "4\t:\t1");
    EXPECT_EQ(readEarlierRun(files, jobs).size(), 4U);
}

TEST(JobLog, IsInTheFormatOfOtherTools) {
    const JobLogEntry entry{12, 1376577364974, 8, 5, 1, 15, "echo \tx"};
    EXPECT_EQ(encode(entry), "12\t:\t1376577364.974\t     0.008\t0\t5\t1\t15\techo \tx\n");
    EXPECT_EQ(parseJobLog(std::string(jobLogHeader) + "nonsense\n" + encode(entry)), std::vector{entry});
}

TEST(RunMessages, ComeInPieces) {
    const RunMessage message{RunMessageKind::ended, 3, 4, 5, 6, -7, 8, "caf\u00E9  au lait "};
    const std::string bytes = encode(message) + "nonsense 1\n" + encode(message);
    RunMessageReader reader;
    EXPECT_TRUE(reader.take(bytes.substr(0, 10)).empty());
    EXPECT_EQ(reader.take(bytes.substr(10)), (std::vector<RunMessage>{message, message}));
    EXPECT_EQ(jobRanges({1, 2, 3, 5, 7, 8}), "1-3,5,7-8");
    EXPECT_EQ(jobsOfRanges("1-3,x,5,7-8"), (std::vector<std::size_t>{1, 2, 3, 5, 7, 8}));
}

}  // namespace
}  // namespace brasquelin
