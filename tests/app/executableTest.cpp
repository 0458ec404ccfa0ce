// The program as it is shipped, on either system.
#include <gtest/gtest.h>

#include "platform/codePages.h"
#include "support/programRun.h"
#include "text/text.h"

namespace brasquelin {
namespace {

const std::string separator(1, static_cast<char>(std::filesystem::path::preferred_separator));
/// A body whose batch line makes a file named after the value of "x".
const std::string makeFileX = "line\n.text=echo made>\"$exepath$" + separator + "$x$.txt\"";

TEST(Executable, AnswersOptionsOnTheStreamsItIsGiven) {
    ProgramRun program;
    EXPECT_EQ(program.run("--version"), 0);
    EXPECT_EQ(program.read("out.txt").find("Brasquelin "), 0U);
    EXPECT_EQ(program.run("--help x.bqp"), 0);
    EXPECT_NE(program.read("out.txt").find("\n  brasquelin -f LIST"), std::string::npos);
    EXPECT_EQ(program.read("err.txt"), "");
    EXPECT_EQ(program.run("--nonsense=1 x.bqp"), 2);
    EXPECT_EQ(program.read("out.txt"), "");
    EXPECT_EQ(splitLines(program.read("err.txt")),
              Lines{"brasquelin: unknown option '--nonsense=1'; --help lists what there is"});
    EXPECT_FALSE(program.exists("data"));
}

TEST(Executable, RunsAFileWithItsPresetsAndEnds) {
    ProgramRun program;
    const std::string profile = program.writeProfile("my profile.bqp", "", makeFileX);
    EXPECT_EQ(program.run(profile + " 001=caf\u00E9 au lait"), 0);
    EXPECT_EQ(decodeOem(program.read("brasquelin.bat")),
              "echo made>\"" + program.shortDirectory() + separator + "caf\u00E9 au lait.txt\"\r\n");
    EXPECT_EQ(splitLines(program.read("caf\u00E9 au lait.txt")), Lines{"made"});
}

TEST(Executable, RunsABatchFileInOneShellWithALogAndResumesIt) {
    ProgramRun program;
    const std::string made = separator + "made.txt";
    program.write("x.bat", "// no job\r\n\r\nmkdir sub\r\ncd sub\r\necho one\r\nhelper fail\r\necho two>.." + made +
                               "\r\nexit 3\r\necho never\r\n");
    EXPECT_EQ(program.run("--run --no-window My x.bat"), 2);
    EXPECT_EQ(splitLines(program.read("made.txt")), Lines{"two"});
    const std::string out = replaceAll(program.read("out.txt"), "\r", "");
    EXPECT_NE(out.find("cd sub\necho one\none\n"), std::string::npos) << out;
    EXPECT_EQ(program.read("x.output"), program.read("out.txt"));
    const std::string summary = program.read("err.txt");
    EXPECT_NE(summary.find("6 of 7 jobs run"), std::string::npos) << summary;
    EXPECT_NE(summary.find("  job 6, exit status 3: exit 3"), std::string::npos) << summary;
    EXPECT_EQ(splitLines(program.read("x.joblog")).size(), 7U);
    // "cd" is repeated for those that come behind it; what ended well is not.
    std::filesystem::remove(program.path() / "made.txt");
    EXPECT_EQ(program.run("--run --no-window --resume x.bat"), 2);
    EXPECT_FALSE(program.exists("made.txt"));
    EXPECT_EQ(splitLines(program.read("x.joblog")).size(), 9U);
    EXPECT_EQ(program.run("--run --no-window missing.bat"), 125);
    EXPECT_NE(program.read("err.txt").find("'missing.bat'"), std::string::npos);
}

TEST(Executable, ReplaysAListInTheOemCodePage) {
    ProgramRun program;
    program.writeProfile("\u00E9t\u00E9.bqp", "", makeFileX);
    const std::string line = "C:\\any where\\Brasquelin.EXE $exepath$/\x82t\x82.bqp 001=";
    program.writeLines("a list.txt", line + "one \x81\n\n" + line + "two");
    EXPECT_EQ(program.run("-f " + program / "a list.txt"), 0);
    EXPECT_EQ(splitLines(program.read("one \u00FC.txt")), Lines{"made"});
    EXPECT_EQ(splitLines(program.read("two.txt")), Lines{"made"});
}

TEST(Executable, TakesValuesFromAPlugin) {
    ProgramRun program;
    program.copyHelper("answer.exe");
    const std::string profile = program.writeProfile("p.bqp", ":plugin $exepath$/answer.exe [Param=\"one two\" three]",
                                                     "line\n.text=echo $count$ $first$ $x$");
    EXPECT_EQ(program.run(profile + " 001=y"), 0);
    EXPECT_EQ(program.read("brasquelin.bat"), "echo 2 one two y\r\n");
    EXPECT_FALSE(program.exists("answer.var"));
}

TEST(Executable, ACheckMayStopEverything) {
    ProgramRun program;
    program.copyHelper("veto.exe");
    for (const std::string answer : {"true", "false"}) {
        program.writeLines("brasquelin.bat", "untouched");
        const std::string profile =
            program.writeProfile("p.bqp", ":check $exepath$/veto.exe [param=" + answer + "]", "line\n.text=echo run");
        EXPECT_EQ(program.run(profile + " 001=y"), 0);
        EXPECT_EQ(program.read("brasquelin.bat"), answer == "true" ? "echo run\r\n" : "untouched\r\n");
    }
}

}  // namespace
}  // namespace brasquelin
