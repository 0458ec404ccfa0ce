// What runs for a long time holds no more at its end than after its first steps.
#include <gtest/gtest.h>

#include <iostream>

#include "engine/runProfile.h"
#include "support/programTest.h"
#include "support/resources.h"

namespace brasquelin {
namespace {

class Growth : public ProgramTest {
  protected:
    Growth() {
        setJobSink([this](std::string_view) { ++lines_; });
        write("Brasquelin.ini", {"[config]", "[/config]", "[var]", "Out=$exepath$/out", "[/var]"});
        writeSayLibrary("say.bqs");
        const std::string programs = ":plugin $exepath$/answer.exe\n:check $exepath$/veto.exe [param=true]\n";
        const std::string body = "plugin.answer=$i$ two\nFor\n.VarName=i\n.VarStart=1\n.VarEnd=3\n.VarStep=1\n";
        writeText("inner.bqp", "#Brasquelin Profile Inner\n[library]\n:include $exepath$/say.bqs\n" + programs +
                                   "[/library]\n[var]\nx\n.Type=Text\n.Info=none\n[/var]\n[profile]\n" + body +
                                   "Say\n.text=$Out$ $x$ $i$ $count$ $first$\nNext\n[/profile]");
        writeText("outer.bqp",
                  "#Brasquelin Profile Outer\n[library]\n:include $exepath$/inner.bqp\n[/library]\n[profile]\n"
                  "Inner\n.x=$index$\n[/profile]");
    }

    void run(int times) {
        for (int i = 0; i < times && !HasFailure(); ++i) {
            EXPECT_TRUE(runProfile(folder() + "/outer.bqp", 1)) << messages().back();
            processes_.commands.clear();
            desktop_.running.clear();
        }
    }

    /// Runs the profile so often, and a tenth of that before the first look. Each run runs another profile, starts
    /// three programs and gives four lines.
    void expectNoGrowth(int times) {
        run(times / 10);
        const std::size_t handles = openHandles();
        const std::size_t bytes = allocatedBytes();
        run(times);
        EXPECT_EQ(openHandles(), handles);
        // The number of a run has grown by a digit, and the allocator rounds.
        EXPECT_LE(allocatedBytes(), bytes + 1024);
        EXPECT_EQ(lines_, static_cast<std::size_t>(times + times / 10) * 4);
        std::cout << times << " runs: " << handles << " handles and " << bytes << " bytes before, " << openHandles()
                  << " and " << allocatedBytes() << " after\n";
    }

    std::size_t lines_ = 0;
};

TEST_F(Growth, IsNoneInManyRunsOfProfilesWithPluginsAndChecks) {
    for (const char* name : {"answer.exe", "veto.exe"}) write(name, {});
    onCommand("answer.exe", [this] { write("answer.var", {"count = 1", "first = x"}); });
    onCommand("veto.exe", [this] { write("veto.var", {"return = true"}); });
    expectNoGrowth(manyTimes);
}

TEST_F(Growth, IsNoneWithRealProcesses) {
    for (const char* name : {"/answer.exe", "/veto.exe"}) {
        std::filesystem::copy_file(BRASQUELIN_HELPER, fromUtf8(folder() + name));
    }
    setProcessTable(nullptr);
    expectNoGrowth(manyProcesses);
}

}  // namespace
}  // namespace brasquelin
