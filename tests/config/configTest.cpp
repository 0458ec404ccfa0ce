#include <gtest/gtest.h>

#include "config/clearDirectory.h"
#include "config/configFile.h"
#include "config/optionsModel.h"
#include "platform/codePages.h"
#include "platform/paths.h"
#include "support/programTest.h"
#include "vars/rememberedValues.h"

namespace brasquelin {
namespace {

class Config : public ProgramTest {
  protected:
    void readLines(const Lines& lines) const {
        write("brasquelin.INI", lines);
        readConfig(configFilePath());
    }
    static Lines variables() { return OptionsModel().variables(); }
};

TEST_F(Config, KeysAreMatchedAtTheLineStartInAnyLetterCase) {
    readLines({"librarypath = outside", "[config]", "LIBRARYPATH = C:\\Lib ", "profilepath=x", " pluginpath = x",
               "shellexec = \\run", "[Config]", "pluginpath = \\plug", "[/config]", "profilepath = after"});
    EXPECT_EQ(settings.libraryPath, "C:\\Lib ");
    EXPECT_EQ(settings.profilePath, "");
    EXPECT_EQ(settings.pluginPath, folder() + "\\plug");
    EXPECT_EQ(settings.shellExec, "\\run");
}

TEST_F(Config, VariablesKeepTheirBlanksAndStartOverWithEachRead) {
    readLines({"[var]", "a = b", "", "TempDir=$EXEPATH$/tmp", "[/var]", "c=d"});
    EXPECT_EQ(variables(), (Lines{"a = b", "TempDir=" + folder() + "/tmp"}));
    EXPECT_EQ(expandGlobals("$tempdir$ $A $"), folder() + "/tmp  b");
    settings.profilePath = "kept";
    readLines({"[var]", "[/var]"});
    EXPECT_EQ(settings.globalVars.count(), 0U);
    EXPECT_EQ(settings.profilePath, "kept");
    readLines({"[config]", "profilepath = /p", "[/config]"});
    settings.profilePath = "/p/open.bqp";
    readConfig(configFilePath());
    EXPECT_EQ(settings.profilePath, "/p") << "also from a file that has not changed";
}

TEST_F(Config, BadVariablesAreErrorsThatKeepTheRowsBefore) {
    EXPECT_EQ(errorOf([this] { readLines({"[var]", "a=1", "no equals sign"}); }), ErrorNumber::invalidCall);
    EXPECT_EQ(settings.globalVars.count(), 1U);
    Lines lines(258, "v=1");
    lines[0] = "[var]";
    EXPECT_EQ(errorOf([&] { readLines(lines); }), ErrorNumber::subscriptOutOfRange);
    EXPECT_EQ(settings.globalVars.count(), 256U);
}

TEST_F(Config, ALineOfBlanksIsQuoted) {
    try {
        readLines({"[var]", "a=1", "  "});
        ADD_FAILURE() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.reportWhileLoading({}), "Error 5 : Invalid procedure call or argument\r\nWhile loading '" +
                                                    configFilePath() + "' at line 3\r\nThe line '  ' holds no \"=\".");
    }
}

TEST_F(Config, TagsAreNoAssignmentsInsideAnotherSection) {
    readLines({"[var]", "a=1", "[config]", "[var]", "[/config]", "librarypath = x", "[config]", "[/var]",
               "profilepath = /p", "[var]", "b=2", "[/var]", "[/config]"});
    EXPECT_EQ(variables(), (Lines{"a=1", "librarypath = x", "b=2"}));
    EXPECT_EQ(settings.libraryPath, "");
    EXPECT_EQ(settings.profilePath, "/p");
}

TEST_F(Config, ClearActsOnlyAtStartUp) {
    write("tmp/a.txt", {"x"});
    write("tmp/sub/b.txt", {"x"});
    write("tmp/deep/er/c.txt", {"x"});
    const Lines lines{"[config]", "clear = \\tmp", "clear = ", "[/config]"};
    readLines(lines);
    EXPECT_TRUE(exists("tmp/a.txt"));
    settings.startingUp = true;
    readLines(lines);
    EXPECT_EQ(desktop_.questions, Lines{"Erase ?: Do you really want to erase this directory : " + folder() + "\\tmp"});
    EXPECT_TRUE(exists("tmp/a.txt"));
    settings.commandLine = "x.bqp";
    readLines(lines);
    EXPECT_FALSE(exists("tmp/a.txt"));
    EXPECT_FALSE(exists("tmp/sub"));
    EXPECT_TRUE(exists("tmp/deep/er/c.txt"));  // one level deep on purpose
}

TEST_F(Config, SomeDirectoriesAreNeverCleared) {
    write("keep.txt", {"x"});
    write("outside/a.txt", {"x"});
    std::filesystem::create_directory(folder() + "/tmp");
    std::error_code cannotLink;
    std::filesystem::create_directory_symlink(folder() + "/outside", folder() + "/tmp/link", cannotLink);
    std::filesystem::create_directory_symlink(folder() + "/outside", folder() + "/link", cannotLink);
    clearDirectory("");
    clearDirectory(folder());
    clearDirectory(folder() + "/tmp/..");
    clearDirectory(std::filesystem::path(folder()).parent_path().string());
    clearDirectory(programDirectory() + "/");
    EXPECT_TRUE(exists("keep.txt"));
    clearDirectory(folder() + "/tmp");
    if (!cannotLink) clearDirectory(folder() + "/link/");
    EXPECT_FALSE(exists("tmp/link"));
    EXPECT_TRUE(exists("outside/a.txt"));
}

TEST_F(Config, NeitherConfiguredDirectoriesNorWhatALinkLeadsToAreCleared) {
    for (const char* name : {"lib/a.bqs", "prof/in/a.bqp", "fn/list.ini", "free/x", "outside/in/x", "inside/in/x"}) {
        write(name, {"x"});
    }
    std::error_code cannotLink;
    std::filesystem::create_directories(folder() + "/tmp/real", cannotLink);
    std::filesystem::create_directory_symlink(folder() + "/outside", folder() + "/tmp/link", cannotLink);
    std::filesystem::create_directory_symlink(folder() + "/inside", folder() + "/near", cannotLink);
    settings.startingUp = true;
    settings.commandLine = "x.bqp";
    readLines({"[config]", "clear = \\lib", "clear = prof", "clear = \\fn", "clear = tmp/link/in", "clear = \\free",
               "clear = near/in", "LibraryPath = \\lib", "ProfilePath = $exepath$/prof/in",
               "BasicFunctionPath = \\fn\\list.ini", "[/config]"});
    for (const char* kept : {"lib/a.bqs", "prof/in/a.bqp", "fn/list.ini", "outside/in/x"}) {
        EXPECT_TRUE(exists(kept)) << kept;
    }
    EXPECT_FALSE(exists("free/x"));
    EXPECT_EQ(exists("inside/in/x"), static_cast<bool>(cannotLink)) << "the link leads to a place beside it";
}

TEST_F(Config, RelativeDirectoriesToBeClearedStartAtTheProgram) {
    write("tmp/a.txt", {"x"});
    write("elsewhere/tmp/a.txt", {"x"});
    std::filesystem::current_path(folder() + "/elsewhere");
    clearDirectory("tmp");
    EXPECT_FALSE(exists("tmp/a.txt"));
    EXPECT_TRUE(exists("elsewhere/tmp/a.txt"));
}

TEST_F(Config, SavingWritesTheExactLayout) {
    readLines({"[config]", "shellexec = x", "[/config]", "[var]", "TempDir=/Tmp/T", "[/var]"});
    OptionsModel options;
    options.setPath(OptionsModel::library, folder() + "/Lib");
    options.setPath(OptionsModel::profile, "C:\\ÉTÉ");
    answerText("New");
    answerText("$exepath$/x");
    EXPECT_TRUE(options.addVariable());
    options.removeVariable(0);
    options.save();
    EXPECT_EQ(decodeFile(read("brasquelin.INI")),
              "#Brasquelin Initialize\r\n\r\n[config]\r\n\r\nLibraryPath = $exepath$/lib\r\nProfilePath = c:\\été\r\n"
              "PluginPath = \r\nBasicFunctionPath = \r\nClear = /Tmp/T\r\n\r\n[/config]\r\n\r\n[var]\r\n\r\n"
              "New=$exepath$/x\r\n[/var]\r\n\r\n");
    EXPECT_EQ(settings.libraryPath, folder() + "/lib");
    EXPECT_EQ(variables(), Lines{"New=" + folder() + "/x"});
    options.save();
    const std::string saved = read("brasquelin.INI");
    EXPECT_NE(saved.find("Clear = $TempDir$\r\n"), std::string::npos);
    EXPECT_EQ(errorOf([this] { writeConfig(folder() + "/none/Brasquelin.ini", {}); }), ErrorNumber::pathNotFound);
    EXPECT_EQ(read("brasquelin.INI"), saved);
}

TEST_F(Config, OptionsTellWhatSavingDoesBesides) {
    readLines({"[config]", "[/config]"});
    EXPECT_EQ(OptionsModel::savingNote(), "The variable TempDir is not set: the next start will empty no directory.");
    readLines({"[config]", "shellexec = xterm -e", "[/config]", "[var]", "tempdir=/t", "[/var]"});
    EXPECT_EQ(OptionsModel::savingNote(),
              "The next start will empty '/t'.\r\nThe launcher 'xterm -e' will not be kept.");
}

TEST_F(Config, VariablesAreModifiedByPrompts) {
    readLines({"[var]", "a=1=2", "[/var]"});
    OptionsModel options;
    options.modifyVariable(std::nullopt);
    options.removeVariable(7);
    options.modifyVariable(0);  // cancelled
    EXPECT_EQ(options.variables(), Lines{"a=1=2"});
    EXPECT_EQ(desktop_.questions, Lines{"Brasquelin: Change the a's value : [1=2]"});
    answerText("3");
    options.modifyVariable(0);
    EXPECT_EQ(options.variables(), Lines{"a=3"});
    answerText("name only");
    EXPECT_FALSE(options.addVariable());
}

TEST_F(Config, DirectoriesAreChosenByAPlaceholderInThem) {
    std::filesystem::create_directory(folder() + "/lib");
    OptionsModel options;
    options.browse(OptionsModel::plugin);  // cancelled: the program directory, at first
    EXPECT_EQ(options.path(OptionsModel::plugin), folder());
    answerFile(folder() + "/lib/Select this directory");
    options.browse(OptionsModel::library);
    options.browse(OptionsModel::profile);  // cancelled: the choice before
    EXPECT_EQ(options.path(OptionsModel::library), folder() + "/lib");
    EXPECT_EQ(options.path(OptionsModel::profile), folder() + "/lib");
    EXPECT_EQ(desktop_.dialogs[0].title, "Select a directory");
}

TEST_F(Config, WhatWouldDamageRememberedValuesIsToldInstead) {
    rememberValue("k", "kept");
    rememberValue("k=x", "y");
    rememberValue("a", "b\nk=other");
    rememberValue("a\r\nk", "other");
    EXPECT_EQ(read("pop.tmp"), "k=kept\r\n");
    ASSERT_EQ(messages().size(), 3U);
    EXPECT_EQ(messages()[2],
              "Brasquelin: The answer for 'a k' is used, but not remembered: a key holds no \"=\", and "
              "neither of them a line break.");
    EXPECT_FALSE(desktop_.hadFailure());
}

TEST_F(Config, RememberedValuesAreTheNewestFiftyOne) {
    EXPECT_FALSE(recallValue("k").has_value());
    for (int i = 0; i < 60; ++i) rememberValue("k" + std::to_string(i), "x=" + std::to_string(i));
    rememberValue("K9", "upper");
    EXPECT_EQ(recallValue("k59"), "x=59");
    EXPECT_EQ(recallValue("K9"), "upper");
    EXPECT_FALSE(recallValue("k9").has_value());
    const std::string file = read("pop.tmp");
    EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 51);
    EXPECT_EQ(file.find("K9=upper\r\nk59=x=59\r\n"), 0U);
}

}  // namespace
}  // namespace brasquelin
