// "--dry-run" of the program as it is shipped.
#include <gtest/gtest.h>

#include <map>

#include "platform/codePages.h"
#include "support/programRun.h"
#include "text/text.h"

namespace brasquelin {
namespace {

class DryRunOption : public testing::Test {
  protected:
    /// Every file with its bytes, without what the runs print.
    std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> found;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(program_.path())) {
            const std::string name = utf8(entry.path().filename());
            if (entry.is_regular_file() && name != "out.txt" && name != "err.txt") {
                found[utf8(entry.path())] = bytesOf(entry.path());
            }
        }
        return found;
    }
    Lines lines() const { return splitLines(program_.read("out.txt")); }
    std::string messages() const { return program_.read("err.txt"); }

    ProgramRun program_;
};

TEST_F(DryRunOption, PrintsWhatTheListWouldExecuteAndLeavesNoTrace) {
    program_.writeLines("Brasquelin.ini", "[config]\nBasicFunctionPath = \\f.ini\nClear = $exepath$/tmp\n[/config]");
    program_.writeLines("f.ini", "save\nsave.ini");
    program_.writeLines("save.ini", "[command]\ntype=file\ncommand=$exepath$/saved.txt\nwrite=a||b\n[/command]");
    program_.writeLines("tmp/kept.txt", "kept");
    program_.writeProfile("p.bqp", "", "line\n.text=echo \u00E9t\u00E9 $x$ $index$\nBasicFunction.save");
    program_.writeLines("stops.bqp", "#Brasquelin Profile Stops\n[profile]\nNext");
    const std::string line = "C:\\brasquelin.exe $exepath$/p.bqp 001=";
    program_.writeLines("list", line + "one two\n\n" + line + "$none$");
    const auto before = files();
    EXPECT_EQ(program_.run("--dry-run -f " + program_ / "list"), 0);
    const Lines printed = lines();
    EXPECT_EQ(program_.run("--dry-run " + program_ / "stops.bqp"), 1);
    EXPECT_EQ(lines(), Lines());
    EXPECT_NE(messages().find("Error 5 : Invalid procedure call"), std::string::npos);
    EXPECT_EQ(files(), before);
    EXPECT_EQ(program_.run("-f " + program_ / "list"), 0);
    EXPECT_EQ(printed.size(), 4U);
    EXPECT_EQ(printed, splitLines(decodeOem(program_.read("brasquelin.bat"))));
    EXPECT_TRUE(program_.exists("saved.txt"));
}

TEST_F(DryRunOption, LeavesWhatOnlyAPluginCouldKnow) {
    program_.copyHelper("answer.exe");
    const std::string profile = program_.writeProfile(
        "p.bqp", ":plugin $exepath$/answer.exe [Param=one]",
        "For\n.VarName=i\n.VarStart=1\n.VarEnd=$count$\n.VarStep=1\nline\n.text=echo $i$ $first$ $x$\nNext");
    const auto before = files();
    EXPECT_EQ(program_.run("--dry-run " + profile + " 001=y"), 0);
    EXPECT_EQ(lines(), Lines{"echo 1 $first$ y"});
    for (const std::string told : {"answer.exe' was not run", "line 15: only a plugin knows '$count$'", ": $first$"}) {
        EXPECT_NE(messages().find(told), std::string::npos) << told;
    }
    EXPECT_EQ(files(), before);
    EXPECT_EQ(program_.run("--dry-run --with-plugins " + profile + " 001=y"), 0);
    EXPECT_EQ(lines(), Lines{"echo 1 one y"});
    EXPECT_EQ(messages(), "");
}

TEST_F(DryRunOption, NamesTheRowsThatWouldBeAskedFor) {
    const std::string profile = program_.writeProfile("p.bqp", "", "line\n.text=echo $x$");
    program_.writeLines("list",
                        "C:\\brasquelin.exe $exepath$/p.bqp 001=#pop:key\n"
                        "C:\\brasquelin.exe $exepath$/p.bqp 001=given\nC:\\brasquelin.exe $exepath$/p.bqp 001=#ask#");
    const auto before = files();
    const std::string told = "Brasquelin: Variable 'x' of the profile 'Test' would have to be asked for.";
    EXPECT_EQ(program_.run("--dry-run -f " + program_ / "list"), 1);
    EXPECT_EQ(lines(), Lines{"echo given"});
    EXPECT_EQ(splitLines(messages()), (Lines{told, told}));
    EXPECT_EQ(program_.run("--dry-run " + profile), 1);
    EXPECT_EQ(lines(), Lines());
    EXPECT_EQ(splitLines(messages()), Lines{told});
    EXPECT_EQ(files(), before);
    EXPECT_EQ(program_.run("--dry-run"), 2);
}

}  // namespace
}  // namespace brasquelin
