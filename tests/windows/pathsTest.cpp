#include "platform/paths.h"

#include <gtest/gtest.h>

#include "platform/files.h"
#include "support/programTest.h"
#include "vars/promptForm.h"

namespace brasquelin {
namespace {

using WindowsPaths = ProgramTest;

TEST_F(WindowsPaths, ShortFormOfADirectoryWithBlanks) {
    write("A long name with blanks/x", {});
    const std::string shortForm = shortPath(folder() + "/A long name with blanks");
    EXPECT_EQ(shortForm.find(' '), std::string::npos) << shortForm;
    EXPECT_TRUE(directoryExists(shortForm)) << shortForm;
}

TEST_F(WindowsPaths, ShortFormBeyondTheFirstBuffer) {
    std::string deep = "\\\\?\\" + utf8(std::filesystem::weakly_canonical(fromUtf8(folder())));
    // Lines that are their own short form, so that the result is long, too.
    for (int level = 0; level < 150; ++level) deep += "\\ABCDEFG" + std::to_string(level % 10);
    std::error_code failed;
    std::filesystem::create_directories(fromUtf8(deep), failed);
    if (failed) GTEST_SKIP() << "paths of this length cannot be made here";
    EXPECT_GT(shortPath(deep).size(), 1024U);
}

TEST_F(WindowsPaths, ChosenForARowOfDoubledBackslashesDoubleEveryOne) {
    PromptRow row;
    row.kind = VariableKind::dbls;
    row.dialogMode = "save";
    row.doubledBackslashes = true;
    for (const auto& [chosen, taken] :
         {std::pair(R"(C:\a.b)", R"(C:\\a.b)"), std::pair(R"(C:\windows\x.y)", R"(C:\\windows\\x.y)")}) {
        answerFile(chosen);
        EXPECT_TRUE(browse(row));
        EXPECT_EQ(row.text, taken);
    }
}

TEST_F(WindowsPaths, FileSystemRoots) {
    for (const char* root : {"C:\\", "C:/", "C:", "\\", "/", "C:\\x\\..", "\\\\server\\share", "\\\\?\\C:\\"}) {
        EXPECT_TRUE(isFileSystemRoot(root)) << root;
    }
    for (const char* other : {"", "C:\\windows", "x", "\\windows"}) EXPECT_FALSE(isFileSystemRoot(other)) << other;
}

TEST_F(WindowsPaths, ADriveMeansItsRootWhereverTheProgramIs) {
    changeDirectory(folder());
    const std::string drive = utf8(std::filesystem::current_path()).substr(0, 2);
    changeDirectory(drive);
    EXPECT_EQ(utf8(std::filesystem::current_path()), drive + "\\");
    EXPECT_EQ(exactDirectory("C:"), "C:\\");
    EXPECT_EQ(exactDirectory("C:."), "");  // where that drive was left is nobody's choice
    EXPECT_EQ(exactDirectory("c:/WINDOWS/system32/.."), "C:\\windows");
}

}  // namespace
}  // namespace brasquelin
