#include "check/checkFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <map>
#include <thread>

#include "check/codes.h"
#include "config/configFile.h"
#include "editor/newLines.h"
#include "editor/problems.h"
#include "engine/runProfile.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "support/programTest.h"
#include "text/text.h"

namespace brasquelin {
namespace {

/// A chapter of the manual: the code, its files in their order, and what is found.
struct Example {
    std::string code;
    std::vector<std::pair<std::string, std::string>> files;
    std::string found;
};

std::vector<Example> examplesOfManual() {
    std::vector<Example> examples;
    std::string block;
    for (const auto& line : splitLines(bytesOf(BRASQUELIN_SOURCE "/docs/checks.md"))) {
        if (line.starts_with("## ")) {
            examples.push_back({line.substr(3), {}, {}});
        } else if (line.starts_with("```")) {
            block = line.substr(3);
            if (!block.empty() && block != "found") examples.back().files.emplace_back(block, "");
        } else if (!block.empty()) {
            (block == "found" ? examples.back().found : examples.back().files.back().second) += line + "\n";
        }
    }
    return examples;
}

class CheckFile : public ProgramTest {
  protected:
    void SetUp() override {
        write("Brasquelin.ini", {"[config]", "BasicFunctionPath = \\functions.ini", "[/config]", "[var]", "[/var]"});
        write("functions.ini", {});
    }
    /// What is found, with the paths of the program directory as the manual writes them.
    std::string check(const std::string& name) const {
        Checker checker;
        checker.check(folder() + "/" + name);
        std::string text = asText(checker.findings(), false);
        text = replaceAll(text, folder() + "/", "");
        return replaceAll(text, folder() + "\\", "");
    }
};

TEST_F(CheckFile, FindsWhatTheManualShows) {
    std::vector<std::string> codes;
    for (const auto& example : examplesOfManual()) {
        codes.push_back(example.code.substr(0, example.code.find(' ')));
        if (example.code.ends_with("(Windows)") && pathSeparator == '/') continue;
        for (const auto& [name, text] : example.files) writeText(name, text);
        ASSERT_FALSE(example.files.empty()) << example.code;
        EXPECT_EQ(check(example.files.front().first), example.found) << example.code;
        EXPECT_NE(example.found.find("[" + codes.back() + "]"), std::string::npos) << example.code;
        for (const auto& [name, text] : example.files) remove(name);
    }
    for (const auto& code : findingCodes) {
        EXPECT_EQ(std::count(codes.begin(), codes.end(), code.name), 1) << code.name;
    }
    EXPECT_EQ(codes.size(), findingCodes.size());
    EXPECT_EQ(commands(), Lines());
    EXPECT_EQ(messages(), Lines());
}

TEST_F(CheckFile, FindsNothingInTheSamples) {
    std::filesystem::copy(BRASQUELIN_SOURCE "/samples", fromUtf8(folder()),
                          std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
    for (const std::string program : {"folderinfo", "listfiles", "notempty", "today"})
        write("plugins/" + program + ".exe", {});
    std::string found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(fromUtf8(folder()))) {
        const std::string name = utf8(entry.path().lexically_relative(fromUtf8(folder())));
        const bool isChecked = name.ends_with(".bqp") || name.ends_with(".bqs") || name.ends_with(".ini");
        if (isChecked || name == "list.txt") found += check(name);
    }
    EXPECT_EQ(found, "");
}

TEST_F(CheckFile, FindsNothingInWhatTheEditorWrites) {
    writeSayLibrary("say.bqs");
    const std::string path = folder() + "/written.bqp";
    ProfileDocument document;
    document.append(EditorList::include, {":Include " + includePath(folder() + "/say.bqs", path)});
    std::string references;
    for (const auto& type : variableTypes()) {
        VariableFields fields;
        fields.name = "of " + type;
        fields.type = type;
        fields.listChoices = {"a", "b"};
        fields.combEntries = {combEntry("first", "1"), combEntry("second", "2")};
        document.append(EditorList::variables, declarationLines(fields));
        references += " $" + fields.name + "$";
    }
    document.append(EditorList::commands, loopLines("n", "1", "$of " + variableTypes().front() + "$", "1"));
    document.append(EditorList::commands, {"Say", ".text=$n$" + references, "Next"});
    saveDocument(document, path);
    EXPECT_EQ(check("written.bqp"), "") << read("written.bqp");
}

TEST_F(CheckFile, ComesBackToTheDirectoryThatRelativePathsStartAt) {
    changeDirectory(folder());
    write("list.txt", {"x\\brasquelin.exe $exepath$/profiles/a.bqp"});
    for (const char* name : {"profiles/a.bqp", "profiles/b.bqp"}) write(name, {"#Brasquelin Profile Example"});
    Checker checker;
    for (const char* name : {"list.txt", "profiles/a.bqp", "profiles/b.bqp"})
        EXPECT_NO_THROW(checker.check(name)) << name;
    EXPECT_TRUE(checker.findings().empty());
}

TEST_F(CheckFile, LeavesTheTablesOfTheProgramAlone) {
    write("example.bqp", {"#Brasquelin Profile Example", "[var]", "a", ".Type=Text", ".Info=", "[/var]"});
    variableTables.pluginResults[0].append({"answer", "42"});
    settings.profilePath = "edited.bqp";
    EXPECT_EQ(expandPluginVars("$answer$", 0), "42");
    check("example.bqp");
    EXPECT_EQ(expandPluginVars("$answer$", 0), "42");
    EXPECT_EQ(settings.profilePath, "edited.bqp");
    EXPECT_TRUE(variableTables.profileVariables[1].empty());
    appendJob("still taken");
    EXPECT_EQ(jobs(), Lines{"still taken"});
}

/// What the values of a list's line bring about stands at that line; what is wrong anyway, where it is.
TEST_F(CheckFile, TellsFaultsOfValuesInTheList) {
    write("loop.bqp", {"#Brasquelin Profile Loop", "[var]", "last", ".Type=Text", ".Info=", "[/var]", "[profile]",
                       "For", ".VarName=i", ".VarStart=1", ".VarEnd=$last$", ".VarStep=one", "Next", "[/profile]"});
    const std::string start = "C:\\brasquelin.exe $exepath$/loop.bqp";
    write("list", {start + " 001=3", start + " 001=three", "", start + " 001=#ask#", start + " 001=#pop:key"});
    EXPECT_EQ(check("list"),
              "list:2:1: error: Error 13 : Type mismatch 'three' is no whole number. (loop.bqp:11) [no-number]\n"
              "loop.bqp:12:1: error: Error 13 : Type mismatch 'one' is no whole number. [no-number]\n");
}

TEST_F(CheckFile, FindsUsesInAnyLetterCaseAndInDefaults) {
    std::vector<std::string> lines{"#Brasquelin Profile Uses", "[library]", ":Include $exepath$/say.bqs", "[/library]",
                                   "[var]"};
    for (const char* name : {"Plain", "a$b", "inner", "alone", "outer"}) {
        lines.insert(lines.end(), {name, ".Type=Text", ".Info="});
    }
    lines.insert(lines.end(), {".Default=in $INNER$", "[/var]", "[profile]", "Say", ".text=$PLAIN$, $A$B$",
                               ".text=$Outer$", "[/profile]"});
    writeSayLibrary("say.bqs");
    write("uses.bqp", lines);
    std::string unused;
    for (const auto& line : splitLines(check("uses.bqp"))) unused += line.ends_with("[unused-variable]") ? line : "";
    EXPECT_EQ(unused, "uses.bqp:15:1: warning: nothing uses 'alone' [unused-variable]");
}

/// What is kept of a file must hide none of its faults, whoever came first: another file, or an earlier check.
TEST_F(CheckFile, TellsTheSameEachTime) {
    write("odd.bqs", {"#Brasquelin Library  Odd", "[var]", "a", ".Type=Number", ".Info=", "[/var]", "[command]",
                      "type=shell", "means nothing", "command=odd $a$", "[/command]"});
    write("caller.bqp", {"#Brasquelin Profile Caller", "[library]", ":Include $exepath$/odd.bqs", "[/library]",
                         "[profile]", "Odd", ".a=1", "Odd", ".b=2", "[/profile]"});
    const std::string found = check("caller.bqp");
    EXPECT_NE(found.find("odd.bqs:4:1: error"), std::string::npos) << found;
    EXPECT_NE(found.find("odd.bqs:9:1: warning"), std::string::npos) << found;
    EXPECT_NE(found.find("caller.bqp:9:1: error"), std::string::npos) << found;
    EXPECT_EQ(check("caller.bqp"), found);
}

/// By another program, while the editor is open.
TEST_F(CheckFile, SeesThatTheFileOfACalledFunctionHasChanged) {
    const auto put = [this](const std::string& name, int chosen) {
        std::ofstream(fromUtf8(folder()) / name, std::ios::binary)
            << "#Brasquelin Library  Say\n[var]\nword\n.Type=List(yes||no)\n.Info=\n.Default=" << chosen
            << "\n[/var]\n[command]\ntype=shell\ncommand=say $word$\n[/command]\n";
        std::this_thread::sleep_for(std::chrono::milliseconds(30));  // a moment ago counts as unchanged
    };
    write("functions.ini", {"tell", "tell.ini"});
    ProfileDocument document;
    document.append(EditorList::include, {":Include $exepath$/say.bqs"});
    document.append(EditorList::commands, {"Say", "BasicFunction.tell"});
    const std::vector<std::string> files{"say.bqs", "tell.ini"};
    for (const auto& file : files) put(file, 1);
    EXPECT_TRUE(findProblems(document).empty());
    for (std::size_t line = 0; line < files.size(); ++line) {
        put(files[line], 5);
        const auto problems = findProblems(document);
        ASSERT_EQ(problems.size(), 1U) << files[line];
        EXPECT_EQ(problems[0].text, "error: Error 9 : Subscript out of range");
        EXPECT_EQ(problems[0].place, (DocumentPlace{EditorList::commands, line}));
        put(files[line], 2);
        EXPECT_TRUE(findProblems(document).empty()) << files[line];
    }
}

}  // namespace
}  // namespace brasquelin
