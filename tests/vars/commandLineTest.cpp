#include "vars/commandLine.h"

#include <gtest/gtest.h>

#include "platform/paths.h"
#include "support/programTest.h"
#include "text/text.h"

namespace brasquelin {
namespace {

TEST(CommandLine, PresetsAreNumberedInOrder) {
    EXPECT_EQ(parsePresets("x.bqp 001=one two 002=three"), (Lines{"one two", "three"}));
    EXPECT_EQ(parsePresets("x.bqp 001=a 003=c"), Lines{"a 003=c"});
    EXPECT_EQ(parsePresets("x.bqp 001=a=b 002= 003="), (Lines{"a=b", "", ""}));
    EXPECT_EQ(parsePresets("x.bqp 001=002=b"), (Lines{"", "b"}));
    EXPECT_EQ(parsePresets("x.bqp 001=é002=b"), (Lines{"", "b"}));  // the character before a key is dropped
    EXPECT_EQ(parsePresets("x.bqp 001=a 002=tell 001=b"), (Lines{"a", "tell 001=b"}));
    EXPECT_EQ(parsePresets("x.bqp001=a"), Lines{});
}

TEST(CommandLine, AThousandthPresetIsPartOfTheLastOne) {
    std::string line = "x.bqp";
    char key[16];
    for (int i = 1; i <= 999; ++i) {
        std::snprintf(key, sizeof key, " %03d=v", i);
        line += key;
    }
    const auto presets = parsePresets(line + " 1000=w");
    ASSERT_EQ(presets.size(), 999U);
    EXPECT_EQ(presets.back(), "v 1000=w");
}

TEST(CommandLine, ListModeNeedsTheBlank) {
    EXPECT_TRUE(isListMode("-F list.txt"));
    EXPECT_FALSE(isListMode("-flist.txt"));
    EXPECT_EQ(listFilePath("-f  a b.txt"), " a b.txt");
}

TEST(CommandLine, TheProgramsPathEndsAtItsMarker) {
    EXPECT_EQ(argumentOfListLine("C:\\tools\\BRASQUELIN.EXE C:\\p\\x.bqp 001=a"), "C:\\p\\x.bqp 001=a");
    EXPECT_EQ(argumentOfListLine("C:\\brasquelin.exe a \\brasquelin.exe b"), "a \\brasquelin.exe b");
    EXPECT_EQ(argumentOfListLine("0123456789abcdefgh.bqp"), "fgh.bqp");
    EXPECT_EQ(argumentOfListLine("0/brasquelin 3456789"), pathSeparator == '/' ? "3456789" : "56789");
    EXPECT_EQ(argumentOfListLine(""), "");
}

TEST_F(ProgramTest, TheTokenOfTheProgramDirectoryStandsInPaths) {
    const FileArgument argument = parseFileArgument("$EXEPATH$/x.bqp 001=$exepath$");
    EXPECT_EQ(argument.path, folder() + "/x.bqp");
    EXPECT_EQ(argument.presets, Lines{"$exepath$"});
}

TEST_F(ProgramTest, AddressesOfFilesArePaths) {
    const auto path = [](const std::string& text) { return replaceAll(parseFileArgument(text).path, "\\", "/"); };
    EXPECT_EQ(path("file:///p/My%20caf%C3%A9.bqp 001=file:///x"), "/p/My café.bqp");
    EXPECT_EQ(path("FILE://localhost/p/100%25%zz%4"), "/p/100%%zz%4");
    EXPECT_EQ(path("file:///p/a%00b"), "/p/a%00b");
    EXPECT_EQ(path("file://host/p"), "file://host/p");
    EXPECT_EQ(path("file:x.bqp"), "file:x.bqp");
    EXPECT_EQ(replaceAll(listFilePath("-f file:///p/a%20b.txt"), "\\", "/"), "/p/a b.txt");
    EXPECT_EQ(parseFileArgument("file:///p 001=file:///x 002=%20").presets, (Lines{"file:///x", "%20"}));
}

}  // namespace
}  // namespace brasquelin
