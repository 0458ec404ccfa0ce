#include "engine/runProfile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string_view>

#include "config/configFile.h"
#include "engine/engineTables.h"
#include "platform/paths.h"
#include "support/programTest.h"
#include "text/substitution.h"
#include "text/text.h"
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
        writeText("echo.bqs",
                  "#Brasquelin Library  Echo\n[var]\ntext\n.Type=Text\n.Info=none\n.Default=nothing\n"
                  "number\n.Type=Text\n.Info=none\n[/var]\n[command]\ntype=shell\n"
                  "command=echo $text$ $number$\n[/command]");
    }

    /// Writes a profile that may call Echo and the profile itself, and runs it at level 1.
    bool run(const std::string& body, const std::string& before = {}) {
        writeText("test.bqp", "#Brasquelin Profile Test profile\n[library]\n:include $exepath$/echo.bqs\n" + before +
                                  (before.empty() ? "" : "\n") + "[/library]\n[profile]\n" + body + "\n[/profile]");
        return runProfile(profile(), 1);
    }
    static std::string loop(const std::string& variable, const std::string& start, const std::string& end,
                            const std::string& step = "1") {
        return "For\n.VarName=" + variable + "\n.VarStart=" + start + "\n.VarEnd=" + end + "\n.VarStep=" + step + "\n";
    }
    /// What the prompt's OK does for one row.
    static void give(const std::string& variable, const std::string& value) {
        variableTables.profileVariables[1].append({variable, "Text", "", ""});
        variableTables.values[1].append(variable + "=" + value);
    }
    std::string profile() const { return folder() + "/test.bqp"; }
};

TEST_F(RunProfile, CallsALibraryWithDefaultsAndParameters) {
    EXPECT_TRUE(run("Echo\nECHO\n.text=$Out$=$index$\n.Number=2\n\n.stray=attribute\necho\nEcho\n.text=a\n.text=b"));
    EXPECT_EQ(jobs(), (Lines{"echo nothing ", "echo /out=1 2", "echo nothing ", "echo b "}));
}

TEST_F(RunProfile, Loops) {
    const std::vector<std::pair<std::string, Lines>> cases{
        {loop("i", "1", "3") + "Echo\n.text=$i$\nnext", {"echo 1 ", "echo 2 ", "echo 3 "}},
        {loop("i", "3", "1", "-2") + "Echo\n.text=$i$\nNEXT", {"echo 3 ", "echo 1 "}},
        {loop("i", "5", "1") + "Echo\n.text=$i$\nNext", {"echo 5 "}},
        {loop("i", "32766", "32767") + "Echo\n.text=$i$\nNext", {"echo 32766 ", "echo 32767 "}},
        {loop("i", "1", "9") + "Echo\n.text=$i$", {"echo 1 "}},
        // Nested ones keep their own records, ended ones their last value.
        {loop("i", "1", "2") + loop("j", "$i$", "2") + "Echo\n.text=$i$-$j$\nNext\nNext\nEcho\n.text=$i$ $j$",
         {"echo 1-1 ", "echo 1-2 ", "echo 2-2 ", "echo 3 3 "}}};
    for (const auto& [body, expected] : cases) {
        engineTables.loops[1] = Loops();
        const auto before = static_cast<std::ptrdiff_t>(jobs().size());
        EXPECT_TRUE(run(body));
        EXPECT_EQ(Lines(jobs().begin() + before, jobs().end()), expected) << body;
    }
}

TEST_F(RunProfile, ALoopHeaderIsExpandedAtItsOwnDepth) {
    give("i", "7");
    run(loop("i", "1", "3") + "Next\n" + loop("j", "$i$", "7") + "Echo\n.text=$j$\nNext");
    EXPECT_EQ(jobs(), (Lines{"echo 4 ", "echo 5 ", "echo 6 ", "echo 7 "}));
    variableTables.reset();
    give("i", "2");
    engineTables.loops[1] = Loops();
    run(loop("k", "1", "2") + loop("i", "$i$", "4") + "Echo\n.text=$k$$i$\nNext\nNext");
    EXPECT_EQ(Lines(jobs().begin() + 4, jobs().end()), (Lines{"echo 12 ", "echo 13 ", "echo 14 ", "echo 25 "}));
}

TEST_F(RunProfile, ADepthThatHeldNoLoopYetHasNoCounter) {
    give("a", "1");
    give("b", "2");
    EXPECT_FALSE(run(loop("i", "one", "12") + "Next"));
    EXPECT_TRUE(run(loop("i", "$a$$b$", "12") + "Echo\n.text=$i$\nNext"));
    EXPECT_EQ(jobs(), Lines{"echo 12 "});
}

TEST_F(RunProfile, LoopsOpen255DeepAndOneThatNeverEndsCanBeLeft) {
    std::string nested;
    for (int depth = 0; depth < 255; ++depth) nested += loop("i", "1", "1");
    EXPECT_TRUE(run(nested));
    EXPECT_FALSE(run(nested + loop("i", "1", "1")));
    desktop_.onEvents = [] { throw EndProgram(0); };
    EXPECT_EQ(exitStatusOf([&] { run(loop("i", "1", "1", "0") + "Next"); }), 0);
}

TEST_F(RunProfile, BadLoopsStopTheRunAndKeepTheJobs) {
    const std::string at = "\r\nWhile loading '" + profile() + "' at line ";
    EXPECT_FALSE(run("Echo\n" + loop("i", "one ", "3")));
    EXPECT_FALSE(run(loop("i", "1", "40000")));
    EXPECT_FALSE(run("Next"));
    EXPECT_EQ(jobs(), Lines{"echo nothing "});
    EXPECT_EQ(messages(), (Lines{"Brasquelin Error: Error 13 : Type mismatch" + at + "9\r\n'one ' is no whole number.",
                                 "Brasquelin Error: Error 6 : Overflow" + at + "9\r\n'40000' is beyond 16 bits.",
                                 "Brasquelin Error: Error 5 : Invalid procedure call or argument" + at + "6"}));
    write("test.bqp", {"#Brasquelin Profile x", "[profile]", "For", ".VarName=i"});
    EXPECT_FALSE(runProfile(profile(), 1));
    EXPECT_NE(messages().back().find("Error 62 : Input past end of file"), std::string::npos);
}

TEST_F(RunProfile, ANestedProfileGetsItsParametersAndKeepsTheCallersTables) {
    writeText("inner.bqp",
              "#Brasquelin Profile Inner one\n[library]\n:include $scriptpath$/echo.bqs\n[/library]\n"
              "[var]\nsize\n.Type=List(small||large)\n.Info=none\n.Default=1\n"
              "name\n.Type=Text\n.Info=none\n.Default=none\n[/var]\n[profile]\nEcho\n.text=$size$ $name$ $index$");
    run("Inner one\ninner ONE\n.name=first\n.name=second\n.size=list(2)\nEcho\n.text=$index$",
        ":include $scriptpath$/inner.bqp");
    EXPECT_EQ(jobs(), (Lines{"echo small none 2 ", "echo large first 3 ", "echo 1 "}));
}

TEST_F(RunProfile, AnUndeclaredParameterIsNamedWithItsCaller) {
    writeText("inner.bqp",
              "#Brasquelin Profile Inner\n[library]\n:include $scriptpath$/echo.bqs\n[/library]\n[profile]\nEcho");
    EXPECT_EQ(exitStatusOf([&] { run("\nInner\n.ghost=1", ":include $scriptpath$/inner.bqp"); }), 1);
    engineTables.fileStack.clear();
    EXPECT_EQ(exitStatusOf([&] { run("Echo\n.ghost=1"); }), 1);
    const std::string from = "Brasquelin: Error : unknown var 'ghost'\r\nFrom file '" + profile() + "' at line ";
    EXPECT_EQ(messages(), (Lines{from + "8\r\nIn file '" + folder() + "/inner.bqp'",
                                 from + "6\r\nIn file '" + folder() + "/echo.bqs'"}));
}

TEST_F(RunProfile, RecursionFailsBehindLevel100) {
    EXPECT_FALSE(run("Echo\nTest profile", ":include $exepath$/test.bqp"));
    EXPECT_EQ(jobs().size(), 100U);
    EXPECT_EQ(messages(), Lines{"Brasquelin Error: Error 9 : Subscript out of range\r\nWhile loading '" + profile() +
                                "' at line 8"});
    EXPECT_TRUE(engineTables.fileStack.empty());
}

TEST_F(RunProfile, UnknownNamesAndBadParameterLinesEndTheProgram) {
    for (const char* body : {"Echo\nNobody $index$", "Plugin.none=1", "Echo\n.text"}) {
        EXPECT_EQ(exitStatusOf([&] { run(body); }), 1) << body;
    }
    const std::string in = "' in file '" + profile() + "' at line ";
    EXPECT_EQ(messages(), (Lines{"Brasquelin: Error : unknown function 'Nobody 1" + in + "7",
                                 "Brasquelin: Error : unknown function 'none" + in + "6",
                                 "Brasquelin: Parse error in file '" + profile() + "' at line 7"}));
}

TEST_F(RunProfile, AMissingOrEmptyIncludeOrConfigurationStopsTheRun) {
    write("empty.bqs", {});
    EXPECT_FALSE(run("Echo", ":include $exepath$/none.bqs"));
    EXPECT_FALSE(run("", ":include $exepath$/empty.bqs"));
    remove("Brasquelin.ini");
    EXPECT_FALSE(run("Echo"));
    const std::string missing = "Brasquelin Error: Error 53 : File not found\r\nWhile loading '";
    const std::string from = "'\r\nFrom file '" + profile() + "'";
    EXPECT_EQ(messages(), (Lines{missing + folder() + "/none.bqs" + from + " at line 4",
                                 "Brasquelin Error: Error 62 : Input past end of file\r\nWhile loading '" + folder() +
                                     "/empty.bqs" + from + " at line 4",
                                 missing + configFilePath() + from}));
}

TEST_F(RunProfile, ATableOfCallablesHolds256Rows) {
    const std::string include = "\n:include $exepath$/echo.bqs";
    std::string includes;
    for (int i = 0; i < 255; ++i) includes += include;
    EXPECT_TRUE(run("", includes));
    EXPECT_FALSE(run("", includes + include));
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_NE(messages()[0].find("Error 9 : Subscript out of range"), std::string::npos);
}

// Plugins and checks

TEST_F(RunProfile, APluginsAnswersReachTheLines) {
    write("info.exe", {"program"});
    onCommand("info.exe", [this] { write("info.var", {"files = 3", "note = a = b"}); });
    run("Echo\n.text=$files$ $NOTE$", ":PLUGIN $exepath$/info.exe [Param=$exepath$ x]");
    EXPECT_EQ(jobs(), Lines{"echo 3 a = b "});
    EXPECT_EQ(commands(), Lines{"\"" + folder() + "/info.exe\" $exepath$ x"});
    EXPECT_FALSE(exists("info.var"));
}

TEST_F(RunProfile, APluginStatementRunsItAgainAndAddsToItsAnswers) {
    write("info.exe", {"program"});
    int runs = 0;
    onCommand("info.exe", [&] { write("info.var", {"run" + std::to_string(++runs) + " = yes"}); });
    run("Plugin.INFO=again $index$\nEcho\n.text=$run1$ $run2$", ":plugin $exepath$/info.exe");
    EXPECT_EQ(jobs(), (Lines{"// Plugin INFO loaded ...", "echo yes yes "}));
    EXPECT_EQ(commands()[1], "\"" + folder() + "/info.exe\" again 1");
}

TEST_F(RunProfile, StaleAnswersAreNeverReadAndOneWithoutItsSignIsQuoted) {
    write("info.exe", {"program"});
    write("INFO.VAR", {"files = 99"});
    EXPECT_FALSE(run("Echo\n.text=$files$", ":plugin $exepath$/info.exe"));
    onCommand("info.exe", [this] { write("info.var", {"files=1 "}); });
    EXPECT_FALSE(run("Echo", ":plugin $exepath$/info.exe"));
    const std::string from = "\r\nFrom file '" + profile() + "' at line 4\r\n";
    EXPECT_EQ(messages(),
              (Lines{"Brasquelin Error: Error 53 : File not found\r\nWhile loading '" + folder() + "/info.var'" + from +
                         "The answers of '" + folder() +
                         "/info.exe' are read from there: its path with \"var\" for the last three characters.",
                     "Brasquelin Error: Error 5 : Invalid procedure call or argument\r\nWhile loading '" + folder() +
                         "/info.var' at line 1" + from + "The line 'files=1 ' holds no \" = \"."}));
}

TEST_F(RunProfile, AProgramThatIsNotThereTouchesNothing) {
    write("var", {"kept"});
    std::filesystem::current_path(std::filesystem::path(fromUtf8(folder())));
    for (const std::string line : {":plugin", ":check", ":plugin ", ":Plugin   [param=x]", ":check $exepath$/"}) {
        EXPECT_FALSE(run("Echo", line));
        EXPECT_EQ(messages().back(),
                  "Brasquelin Error: Error 53 : File not found\r\nWhile loading '" + profile() + "' at line 4")
            << line;
    }
    write("gone.var", {"kept"});
    EXPECT_FALSE(run("Echo", ":plugin $exepath$/gone.exe"));
    EXPECT_EQ(messages().back(), "Brasquelin Error: Error 53 : File not found\r\nWhile loading '" + folder() +
                                     "/gone.exe'\r\nFrom file '" + profile() + "' at line 4");
    for (const char* kept : {"var", "gone.var"}) EXPECT_TRUE(exists(kept)) << kept;
    EXPECT_TRUE(commands().empty());
}

/// What a plugin changes is seen by the next line, also where size and time of a file stay: the library's command and
/// declarations, a called profile, the configuration.
TEST_F(RunProfile, FilesThatAPluginChangesAreSeenInTheSameRun) {
    writeText("called.bqp",
              "#Brasquelin Profile Called\n[library]\n:include $exepath$/echo.bqs\n[/library]\n[var]\nx\n.Type=Text\n"
              ".Info=none\n.Default=one\n[/var]\n[profile]\nEcho\n.text=$x$ $Out$\n[/profile]");
    write("info.exe", {});
    const auto change = [this](const std::string& name, std::string_view from, std::string_view to) {
        const auto time = std::filesystem::last_write_time(folder() + "/" + name);
        writeBytes(name, replaceAll(read(name), from, to));
        std::filesystem::last_write_time(folder() + "/" + name, time);
    };
    int runs = 0;
    onCommand("info.exe", [&] {
        write("info.var", {});
        if (++runs != 2) return;
        change("echo.bqs", "echo $", "tell $");
        change("echo.bqs", "nothing", "nobody!");
        change("called.bqp", "Default=one", "Default=two");
        change("Brasquelin.ini", "Out=/out", "Out=/new");
    });
    EXPECT_TRUE(
        run("Echo\nCalled\nPlugin.info\nEcho\nCalled", ":include $exepath$/called.bqp\n:plugin $exepath$/info.exe"));
    EXPECT_EQ(jobs(), (Lines{"echo nothing ", "echo one /out ", "// Plugin info loaded ...", "tell nobody! ",
                             "tell two /new "}));
}

TEST_F(RunProfile, ACheckMayEndTheProgramWithoutAWord) {
    write("ready.exe", {"program"});
    onCommand("ready.exe", [this] { write("ready.var", {"RETURN = False"}); });
    EXPECT_EQ(exitStatusOf([&] { run("Echo", ":check $exepath$/ready.exe"); }), 0);
    onCommand("ready.exe", [this] { write("ready.var", {"return = true"}); });
    EXPECT_TRUE(run("Echo", ":check $exepath$/ready.exe"));
    EXPECT_TRUE(messages().empty());
}

// Basic functions

class RunFunction : public RunProfile {
  protected:
    void SetUp() override {
        RunProfile::SetUp();
        write("functions.ini", {"Copy", "copy.ini", "note", "$EXEPATH$/note.ini", "plain", "plain.ini", "odd"});
        writeText("copy.ini",
                  "[var]\nfrom\n.Type=Text\n.Info=none\n.Default=a\n"
                  "mode\n.Type=Comb(Fast[-f]||Safe[-s])\n.Info=none\n.Default=2\n"
                  "path\n.Type=DblSOpen(a|*.*)\n.Info=none\n[/var]\n[COMMAND]\nType=Shell\n"
                  "Command=cp $mode$ $from$ $path$ text($mode$) index($mode$)\n[/Command]");
        writeText("plain.ini",
                  "[command]\ntype=shell\ncommand = ignored\ncommand=run $exepathdblslash$ $exepathdbslash$\n"
                  "[/command]");
        writeText("note.ini",
                  "[var]\nname\n.Type=Text\n.Info=none\n[/var]\n[command]\ntype=file\n"
                  "command=$exepath$/$name$.txt\nwrite=$name$||||$exepath$ end\n[/command]");
    }
};

TEST_F(RunFunction, ParametersNameVariablesOrFillTheFirstOne) {
    run("BasicFunction.copy\nBasicFunction.COPY=b=c\nBasicFunction.copy=from=x||y||Mode=-f||path=C:\\d\\\\e");
    EXPECT_EQ(jobs(), (Lines{"cp -s a  Safe 2", "cp -s b=c  Safe 2", "cp -f x||y C:\\\\d\\\\e Fast 1"}));
}

TEST_F(RunFunction, TheNamesOfACommandHaveTheirTurns) {
    for (const std::string command : {"cp $$-$from$$b$ $Out$ $from$-$none$", "cp $out$ $FROM$ $$-$b$"}) {
        writeText("copy.ini",
                  "[var]\nfrom\n.Type=Text\n.Info=\nb\n.Type=Text\n.Info=\n[/var]\n[command]\n"
                  "type=shell\ncommand=" +
                      command + "\n[/command]");
        run("BasicFunction.copy=from=$b$||b=2\nBasicFunction.copy=from=1||b=2");
    }
    EXPECT_EQ(jobs(), (Lines{"cp -22 /out 2-$none$", "cp -12 /out 1-$none$", "cp /out 2 -2", "cp /out 1 -2"}));
}

TEST_F(RunFunction, OnlyDigitsAloneAreAnItemNumber) {
    for (const std::string value : {"2", " 2", "+2", "-s"}) {
        write("copy.ini", {"[var]", "mode", ".Type=Comb(Fast[-f]||Safe[-s])", ".Info=none", "[/var]", "[command]",
                           "type=shell", "command=cp $mode$", "mode=" + value, "[/command]"});
        run("BasicFunction.copy");
    }
    EXPECT_EQ(jobs(), (Lines{"cp -s", "cp  2", "cp +2", "cp -s"}));
}

TEST_F(RunFunction, WritesAFileAndSpellsTheBuiltInsInItsOwnWay) {
    run("BasicFunction.note=memo\nBasicFunction.plain=ignored");
    EXPECT_EQ(jobs(), (Lines{"//File saved to " + folder() + "/memo.txt",
                             "run $exepathdblslash$ " + doubleBackslashes(folder())}));
    EXPECT_EQ(read("memo.txt"), "memo\r\n\r\n" + folder() + " end\r\n");
}

TEST_F(RunFunction, UnknownNamesAndArguments) {
    EXPECT_EQ(exitStatusOf([&] { run("BasicFunction.none=1"); }), 1);
    EXPECT_EQ(exitStatusOf([&] { run("BasicFunction.copy=ghost=1||mode=-f"); }), 1);
    EXPECT_FALSE(run("BasicFunction.odd"));
    const std::string at = "' at line 6";
    EXPECT_EQ(messages()[0], "Brasquelin: Error : unknown function 'none' in file '" + profile() + at);
    EXPECT_EQ(messages()[1], "Brasquelin: Error : unknown var 'ghost'\r\nFrom file '" + profile() + at +
                                 "\r\nIn file '" + joinPath(folder(), "copy.ini") + "'");
    EXPECT_NE(messages()[2].find("Error "), std::string::npos);
}

TEST_F(RunFunction, AnUnsetListIsNamed) {
    write("Brasquelin.ini", {"[config]", "basicfunctionpath = ", "[/config]"});
    EXPECT_FALSE(run("BasicFunction.copy"));
    EXPECT_EQ(messages(), Lines{"Brasquelin Error: Error 53 : File not found\r\nWhile loading '" + profile() +
                                "' at line 6\r\nThe setting BasicFunctionPath is empty: it names the list file of the "
                                "basic functions."});
}

TEST_F(RunFunction, AFileWithoutWriteKeepsThePreviousTextAndOtherKindsGiveAnEmptyLine) {
    write("copy.ini", {"[var]", "x", ".Type=Text", ".Info=none", "[/var]", "[command]", "type=file",
                       "command=$exepath$/again.txt", "[/command]"});
    write("plain.ini", {"[command]", "type=other", "[/command]"});
    run("BasicFunction.note=memo\nBasicFunction.copy\nBasicFunction.plain");
    EXPECT_EQ(read("again.txt"), "$name$\r\n\r\n" + folder() + " end\r\n");
    EXPECT_EQ(jobs().back(), "");
}

TEST_F(RunFunction, AnUnwritableFileStopsTheRun) {
    write("note.ini", {"[var]", "name", ".Type=Text", ".Info=none", "[/var]", "[command]", "type=file",
                       "command=$exepath$/none/x.txt", "[/command]"});
    EXPECT_FALSE(run("BasicFunction.note=a\nEcho"));
    EXPECT_TRUE(jobs().empty());
    EXPECT_EQ(messages(), Lines{"Brasquelin Error: Error 76 : Path not found\r\nWhile writting '" + folder() +
                                "/none/x.txt'\r\nFrom file '" + profile() + "' at line 6"});
}

}  // namespace
}  // namespace brasquelin
