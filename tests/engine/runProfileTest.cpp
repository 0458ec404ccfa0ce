#include "engine/runProfile.h"

#include <gtest/gtest.h>

#include "config/configFile.h"
#include "engine/engineTables.h"
#include "platform/paths.h"
#include "support/programTest.h"
#include "text/substitution.h"
#include "vars/declarations.h"
#include "vars/variableTables.h"

namespace brasquelin {
namespace {

class RunProfile : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        write("Brasquelin.ini",
              {"[config]", "basicfunctionpath = \\functions.ini", "[/config]", "[var]", "Out=/out", "[/var]"});
        write("echo.bqs", {"#Brasquelin Library  Echo", "[var]", "text", ".Type=Text", ".Info=none", ".Default=nothing",
                           "number", ".Type=Text", ".Info=none", "[/var]", "[command]", "type=shell",
                           "command=echo $text$ $number$", "[/command]"});
    }

    /// Writes a profile that may call Echo and the profile itself, and runs it at level 1.
    bool run(const std::vector<std::string>& body, const std::vector<std::string>& before = {}) {
        std::vector<std::string> lines{"#Brasquelin Profile Test profile", "[library]", ":include $exepath$/echo.bqs"};
        lines.insert(lines.end(), before.begin(), before.end());
        lines.insert(lines.end(), {"[/library]", "[profile]"});
        lines.insert(lines.end(), body.begin(), body.end());
        lines.emplace_back("[/profile]");
        write("test.bqp", lines);
        return runProfile(profile(), 1);
    }
    /// What the prompt's OK does for one row.
    static void give(const std::string& variable, const std::string& value) {
        variableTables.profileVariables[1].append({variable, "Text", "", ""});
        variableTables.values[1].append(variable + "=" + value);
    }
    std::string profile() const { return folder() + "/test.bqp"; }
    using Jobs = std::vector<std::string>;
};

TEST_F(RunProfile, CallsALibraryWithDefaultsAndParameters) {
    EXPECT_TRUE(run({"Echo", "ECHO", ".text=$Out$=$index$", ".Number=2", "", ".stray=attribute", "echo"}));
    EXPECT_EQ(jobs(), (Jobs{"echo nothing ", "echo /out=1 2", "echo nothing "}));
}

TEST_F(RunProfile, TheLastOfSeveralParametersWinsInALibrary) {
    run({"Echo", ".text=a", ".text=b"});
    EXPECT_EQ(jobs(), Jobs{"echo b "});
}

TEST_F(RunProfile, LoopsRunUpDownAndAtLeastOnce) {
    run({"FOR", ".VarName=i", ".VarStart=1", ".VarEnd=3", ".VarStep=1",  "Echo", ".text=$i$",      "next",  //
         "For", ".VarName=i", ".VarStart=3", ".VarEnd=1", ".VarStep=-2", "Echo", ".text=down $i$", "Next",
         "For", ".VarName=i", ".VarStart=5", ".VarEnd=1", ".VarStep=1",  "Echo", ".text=once $i$", "Next"});
    EXPECT_EQ(jobs(), (Jobs{"echo 1 ", "echo 2 ", "echo 3 ", "echo down 3 ", "echo down 1 ", "echo once 5 "}));
}

TEST_F(RunProfile, NestedLoopsKeepTheirOwnRecordsAndEndedOnesTheirLastValue) {
    run({"For", ".VarName=i", ".VarStart=1", ".VarEnd=2", ".VarStep=1",    //
         "For", ".VarName=j", ".VarStart=$i$", ".VarEnd=2", ".VarStep=1",  //
         "Echo", ".text=$i$-$j$", "Next", "Next", "Echo", ".text=$i$ $j$"});
    EXPECT_EQ(jobs(), (Jobs{"echo 1-1 ", "echo 1-2 ", "echo 2-2 ", "echo 3 3 "}));
}

TEST_F(RunProfile, ALoopUpToTheLargestNumberEndsAndOneWithoutNextRunsOnce) {
    run({"For", ".VarName=i", ".VarStart=32766", ".VarEnd=32767", ".VarStep=1", "Echo", ".text=$i$", "Next", "For",
         ".VarName=k", ".VarStart=1", ".VarEnd=9", ".VarStep=1", "Echo", ".text=$k$"});
    EXPECT_EQ(jobs(), (Jobs{"echo 32766 ", "echo 32767 ", "echo 1 "}));
}

TEST_F(RunProfile, ALoopHeaderIsExpandedAtItsOwnDepth) {
    const auto loop = [](const std::string& variable, const std::string& start, const std::string& end) {
        return Jobs{"For", ".VarName=" + variable, ".VarStart=" + start, ".VarEnd=" + end, ".VarStep=1"};
    };
    const auto body = [](const std::vector<Jobs>& parts) {
        Jobs lines;
        for (const auto& part : parts) lines.insert(lines.end(), part.begin(), part.end());
        return lines;
    };
    give("i", "7");
    run(body({loop("i", "1", "3"), {"Next"}, loop("j", "$i$", "7"), {"Echo", ".text=$j$", "Next"}}));
    EXPECT_EQ(jobs(), (Jobs{"echo 4 ", "echo 5 ", "echo 6 ", "echo 7 "}));
    variableTables.reset();
    give("i", "2");
    engineTables.loops[1] = Loops();
    run(body({loop("k", "1", "2"), loop("i", "$i$", "4"), {"Echo", ".text=$k$$i$", "Next", "Next"}}));
    EXPECT_EQ(Jobs(jobs().begin() + 4, jobs().end()), (Jobs{"echo 12 ", "echo 13 ", "echo 14 ", "echo 25 "}));
}

TEST_F(RunProfile, ADepthThatHeldNoLoopYetHasNoCounter) {
    give("a", "1");
    give("b", "2");
    EXPECT_FALSE(run({"For", ".VarName=i", ".VarStart=one", ".VarEnd=12", ".VarStep=1", "Next"}));
    EXPECT_TRUE(
        run({"For", ".VarName=i", ".VarStart=$a$$b$", ".VarEnd=12", ".VarStep=1", "Echo", ".text=$i$", "Next"}));
    EXPECT_EQ(jobs(), Jobs{"echo 12 "});
}

TEST_F(RunProfile, LoopsOpen255Deep) {
    const auto nested = [](std::size_t depth) {
        const Jobs header{"For", ".VarName=i", ".VarStart=1", ".VarEnd=1", ".VarStep=1"};
        Jobs lines;
        while (lines.size() < depth * header.size()) lines.insert(lines.end(), header.begin(), header.end());
        return lines;
    };
    EXPECT_TRUE(run(nested(255)));
    EXPECT_FALSE(run(nested(256)));
}

TEST_F(RunProfile, ALoopThatNeverEndsCanBeLeft) {
    desktop_.onEvents = [] { throw EndProgram(0); };
    EXPECT_EQ(exitStatusOf([&] { run({"For", ".VarName=i", ".VarStart=1", ".VarEnd=1", ".VarStep=0", "Next"}); }), 0);
}

TEST_F(RunProfile, BadLoopsStopTheRunAndKeepTheJobs) {
    const std::string at = "\r\nWhile loading '" + profile() + "' at line ";
    EXPECT_FALSE(run({"Echo", "For", ".VarName=i", ".VarStart=one ", ".VarEnd=3", ".VarStep=1"}));
    EXPECT_FALSE(run({"For", ".VarName=i", ".VarStart=1", ".VarEnd=40000", ".VarStep=1"}));
    EXPECT_FALSE(run({"Next"}));
    EXPECT_EQ(jobs(), Jobs{"echo nothing "});
    EXPECT_EQ(messages(), (Jobs{"Brasquelin Error: Error 13 : Type mismatch" + at + "9\r\n'one ' is no whole number.",
                                "Brasquelin Error: Error 6 : Overflow" + at + "9\r\n'40000' is beyond 16 bits.",
                                "Brasquelin Error: Error 5 : Invalid procedure call or argument" + at + "6"}));
}

TEST_F(RunProfile, TheEndOfTheFileInsideALoopHeaderIsAnError) {
    write("test.bqp", {"#Brasquelin Profile x", "[profile]", "For", ".VarName=i"});
    EXPECT_FALSE(runProfile(profile(), 1));
    EXPECT_EQ(messages().size(), 1U);
    EXPECT_NE(messages()[0].find("Error 62 : Input past end of file"), std::string::npos);
}

TEST_F(RunProfile, ANestedProfileGetsItsParametersAndKeepsTheCallersTables) {
    write("inner.bqp", {"#Brasquelin Profile Inner one", "[library]", ":include $scriptpath$/echo.bqs", "[/library]",
                        "[var]", "size", ".Type=List(small||large)", ".Info=none", ".Default=1", "name", ".Type=Text",
                        ".Info=none", ".Default=none", "[/var]", "[profile]", "Echo", ".text=$size$ $name$ $index$"});
    const std::string include = ":include $scriptpath$/inner.bqp";
    run({"Inner one", "inner ONE", ".name=first", ".name=second", ".size=list(2)", "Echo", ".text=$index$"}, {include});
    EXPECT_EQ(jobs(), (Jobs{"echo small none 2 ", "echo large first 3 ", "echo 1 "}));
}

TEST_F(RunProfile, AnUndeclaredParameterOfANestedProfileIsNamedWithItsCaller) {
    write("inner.bqp", {"#Brasquelin Profile Inner", "[library]", ":include $scriptpath$/echo.bqs", "[/library]",
                        "[profile]", "Echo"});
    EXPECT_EQ(exitStatusOf([&] { run({"", "Inner", ".ghost=1"}, {":include $scriptpath$/inner.bqp"}); }), 1);
    EXPECT_EQ(messages(), Jobs{"Brasquelin: Error : unknown var 'ghost'\r\nFrom file '" + profile() +
                               "' at line 8\r\nIn file '" + folder() + "/inner.bqp'"});
}

TEST_F(RunProfile, AnUndeclaredParameterOfALibraryIsNamedWithItsCaller) {
    EXPECT_EQ(exitStatusOf([&] { run({"Echo", ".ghost=1"}); }), 1);
    EXPECT_EQ(messages(), Jobs{"Brasquelin: Error : unknown var 'ghost'\r\nFrom file '" + profile() +
                               "' at line 6\r\nIn file '" + folder() + "/echo.bqs'"});
}

TEST_F(RunProfile, RecursionFailsBehindLevel100) {
    EXPECT_FALSE(run({"Echo", "Test profile"}, {":include $exepath$/test.bqp"}));
    EXPECT_EQ(jobs().size(), 100U);
    EXPECT_EQ(messages(), Jobs{"Brasquelin Error: Error 9 : Subscript out of range\r\nWhile loading '" + profile() +
                               "' at line 8"});
    EXPECT_TRUE(engineTables.fileStack.empty());
}

TEST_F(RunProfile, UnknownNamesAndBadParameterLinesEndTheProgram) {
    EXPECT_EQ(exitStatusOf([&] { run({"Echo", "Nobody $index$"}); }), 1);
    EXPECT_EQ(exitStatusOf([&] { run({"Plugin.none=1"}); }), 1);
    EXPECT_EQ(exitStatusOf([&] { run({"Echo", ".text"}); }), 1);
    const std::string in = "' in file '" + profile() + "' at line ";
    EXPECT_EQ(messages(), (Jobs{"Brasquelin: Error : unknown function 'Nobody 1" + in + "7",
                                "Brasquelin: Error : unknown function 'none" + in + "6",
                                "Brasquelin: Parse error in file '" + profile() + "' at line 7"}));
}

TEST_F(RunProfile, AMissingIncludeOrConfigurationStopsTheRun) {
    EXPECT_FALSE(run({"Echo"}, {":include $exepath$/none.bqs"}));
    remove("Brasquelin.ini");
    EXPECT_FALSE(run({"Echo"}));
    const std::string missing = "Brasquelin Error: Error 53 : File not found\r\nWhile loading '";
    EXPECT_EQ(messages(), (Jobs{missing + folder() + "/none.bqs'\r\nFrom file '" + profile() + "' at line 4",
                                missing + configFilePath() + "'\r\nFrom file '" + profile() + "'"}));
}

TEST_F(RunProfile, AnEmptyIncludeIsNamed) {
    write("empty.bqs", {});
    EXPECT_FALSE(run({}, {":include $exepath$/empty.bqs"}));
    EXPECT_EQ(messages(), Jobs{"Brasquelin Error: Error 62 : Input past end of file\r\nWhile loading '" + folder() +
                               "/empty.bqs'\r\nFrom file '" + profile() + "' at line 4"});
}

TEST_F(RunProfile, ATableOfCallablesHolds256Rows) {
    EXPECT_TRUE(run({}, std::vector<std::string>(255, ":include $exepath$/echo.bqs")));
    EXPECT_FALSE(run({}, std::vector<std::string>(256, ":include $exepath$/echo.bqs")));
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_NE(messages()[0].find("Error 9 : Subscript out of range"), std::string::npos);
}

// Plugins and checks

TEST_F(RunProfile, APluginsAnswersReachTheLines) {
    write("info.exe", {"program"});
    onCommand("info.exe", [this] { write("info.var", {"files = 3", "note = a = b"}); });
    run({"Echo", ".text=$files$ $NOTE$"}, {":PLUGIN $exepath$/info.exe [Param=$exepath$ x]"});
    EXPECT_EQ(jobs(), Jobs{"echo 3 a = b "});
    EXPECT_EQ(commands(), Jobs{"\"" + folder() + "/info.exe\" $exepath$ x"});
    EXPECT_FALSE(exists("info.var"));
}

TEST_F(RunProfile, APluginStatementRunsItAgainAndAddsToItsAnswers) {
    write("info.exe", {"program"});
    int runs = 0;
    onCommand("info.exe", [&] { write("info.var", {"run" + std::to_string(++runs) + " = yes"}); });
    run({"Plugin.INFO=again $index$", "Echo", ".text=$run1$ $run2$"}, {":plugin $exepath$/info.exe"});
    EXPECT_EQ(jobs(), (Jobs{"// Plugin INFO loaded ...", "echo yes yes "}));
    EXPECT_EQ(commands()[1], "\"" + folder() + "/info.exe\" again 1");
}

TEST_F(RunProfile, StaleAnswersAreNeverRead) {
    write("info.exe", {"program"});
    write("INFO.VAR", {"files = 99"});
    EXPECT_FALSE(run({"Echo", ".text=$files$"}, {":plugin $exepath$/info.exe"}));
    EXPECT_EQ(messages(), Jobs{"Brasquelin Error: Error 53 : File not found\r\nWhile loading '" + folder() +
                               "/info.var'\r\nFrom file '" + profile() + "' at line 4\r\nThe answers of '" + folder() +
                               "/info.exe' are read from there: its path with \"var\" for the last three characters."});
}

TEST_F(RunProfile, AnAnswerWithoutItsSignIsQuoted) {
    write("info.exe", {"program"});
    onCommand("info.exe", [this] { write("info.var", {"files=1 "}); });
    EXPECT_FALSE(run({"Echo"}, {":plugin $exepath$/info.exe"}));
    EXPECT_EQ(messages(), Jobs{"Brasquelin Error: Error 5 : Invalid procedure call or argument\r\nWhile loading '" +
                               folder() + "/info.var' at line 1\r\nFrom file '" + profile() +
                               "' at line 4\r\nThe line 'files=1 ' holds no \" = \"."});
}

TEST_F(RunProfile, AProgramLineWithoutAPathTouchesNothing) {
    write("var", {"kept"});
    std::filesystem::current_path(std::filesystem::path(fromUtf8(folder())));
    for (const std::string line : {":plugin", ":check", ":plugin ", ":Plugin   [param=x]", ":check $exepath$/"}) {
        EXPECT_FALSE(run({"Echo"}, {line}));
        EXPECT_EQ(messages().back(),
                  "Brasquelin Error: Error 53 : File not found\r\nWhile loading '" + profile() + "' at line 4")
            << line;
    }
    EXPECT_TRUE(exists("var"));
    EXPECT_TRUE(commands().empty());
}

TEST_F(RunProfile, ACheckMayEndTheProgramWithoutAWord) {
    write("ready.exe", {"program"});
    onCommand("ready.exe", [this] { write("ready.var", {"RETURN = False"}); });
    EXPECT_EQ(exitStatusOf([&] { run({"Echo"}, {":check $exepath$/ready.exe"}); }), 0);
    onCommand("ready.exe", [this] { write("ready.var", {"return = true"}); });
    EXPECT_TRUE(run({"Echo"}, {":check $exepath$/ready.exe"}));
    EXPECT_TRUE(messages().empty());
}

// Basic functions

class RunFunction : public RunProfile {
  protected:
    void SetUp() override {
        RunProfile::SetUp();
        write("functions.ini", {"Copy", "copy.ini", "note", "$EXEPATH$/note.ini", "plain", "plain.ini", "odd"});
        write("copy.ini",
              {"[var]", "from", ".Type=Text", ".Info=none", ".Default=a", "mode", ".Type=Comb(Fast[-f]||Safe[-s])",
               ".Info=none", ".Default=2", "path", ".Type=DblSOpen(a|*.*)", ".Info=none", "[/var]", "[COMMAND]",
               "Type=Shell", "Command=cp $mode$ $from$ $path$ text($mode$) index($mode$)", "[/Command]"});
        write("plain.ini", {"[command]", "type=shell", "command = ignored",
                            "command=run $exepathdblslash$ $exepathdbslash$", "[/command]"});
        write("note.ini", {"[var]", "name", ".Type=Text", ".Info=none", "[/var]", "[command]", "type=file",
                           "command=$exepath$/$name$.txt", "write=$name$||||$exepath$ end", "[/command]"});
    }
};

TEST_F(RunFunction, ParametersNameVariablesOrFillTheFirstOne) {
    run({"BasicFunction.copy", "BasicFunction.COPY=b=c", "BasicFunction.copy=from=x||y||Mode=-f||path=C:\\d\\\\e"});
    EXPECT_EQ(jobs(), (Jobs{"cp -s a  Safe 2", "cp -s b=c  Safe 2", "cp -f x||y C:\\\\d\\\\e Fast 1"}));
}

TEST_F(RunFunction, OnlyDigitsAloneAreAnItemNumber) {
    for (const std::string value : {"2", " 2", "+2", "-s"}) {
        write("copy.ini", {"[var]", "mode", ".Type=Comb(Fast[-f]||Safe[-s])", ".Info=none", "[/var]", "[command]",
                           "type=shell", "command=cp $mode$", "mode=" + value, "[/command]"});
        run({"BasicFunction.copy"});
    }
    EXPECT_EQ(jobs(), (Jobs{"cp -s", "cp  2", "cp +2", "cp -s"}));
}

TEST_F(RunFunction, WritesAFileAndSpellsTheBuiltInsInItsOwnWay) {
    run({"BasicFunction.note=memo", "BasicFunction.plain=ignored"});
    EXPECT_EQ(jobs(), (Jobs{"//File saved to " + folder() + "/memo.txt",
                            "run $exepathdblslash$ " + doubleBackslashes(folder())}));
    EXPECT_EQ(read("memo.txt"), "memo\r\n\r\n" + folder() + " end\r\n");
}

TEST_F(RunFunction, UnknownNamesAndArguments) {
    EXPECT_EQ(exitStatusOf([&] { run({"BasicFunction.none=1"}); }), 1);
    EXPECT_EQ(exitStatusOf([&] { run({"BasicFunction.copy=ghost=1||mode=-f"}); }), 1);
    EXPECT_FALSE(run({"BasicFunction.odd"}));
    const std::string at = "' at line 6";
    EXPECT_EQ(messages()[0], "Brasquelin: Error : unknown function 'none' in file '" + profile() + at);
    EXPECT_EQ(messages()[1], "Brasquelin: Error : unknown var 'ghost'\r\nFrom file '" + profile() + at +
                                 "\r\nIn file '" + joinPath(folder(), "copy.ini") + "'");
    EXPECT_NE(messages()[2].find("Error "), std::string::npos);
}

TEST_F(RunFunction, AnUnsetListIsNamed) {
    write("Brasquelin.ini", {"[config]", "basicfunctionpath = ", "[/config]"});
    EXPECT_FALSE(run({"BasicFunction.copy"}));
    EXPECT_EQ(messages(), Jobs{"Brasquelin Error: Error 53 : File not found\r\nWhile loading '" + profile() +
                               "' at line 6\r\nThe setting BasicFunctionPath is empty: it names the list file of the "
                               "basic functions."});
}

TEST_F(RunFunction, AFileWithoutWriteKeepsThePreviousTextAndOtherKindsGiveAnEmptyLine) {
    write("copy.ini", {"[var]", "x", ".Type=Text", ".Info=none", "[/var]", "[command]", "type=file",
                       "command=$exepath$/again.txt", "[/command]"});
    write("plain.ini", {"[command]", "type=other", "[/command]"});
    run({"BasicFunction.note=memo", "BasicFunction.copy", "BasicFunction.plain"});
    EXPECT_EQ(read("again.txt"), "$name$\r\n\r\n" + folder() + " end\r\n");
    EXPECT_EQ(jobs().back(), "");
}

TEST_F(RunFunction, AnUnwritableFileStopsTheRun) {
    write("note.ini", {"[var]", "name", ".Type=Text", ".Info=none", "[/var]", "[command]", "type=file",
                       "command=$exepath$/none/x.txt", "[/command]"});
    EXPECT_FALSE(run({"BasicFunction.note=a", "Echo"}));
    EXPECT_TRUE(jobs().empty());
    EXPECT_EQ(messages(), Jobs{"Brasquelin Error: Error 76 : Path not found\r\nWhile writting '" + folder() +
                               "/none/x.txt'\r\nFrom file '" + profile() + "' at line 6"});
}

}  // namespace
}  // namespace brasquelin
