#include "platform/paths.h"

#include <gtest/gtest.h>

#include "platform/files.h"
#include "support/scratchDirectory.h"
#include "text/runTimeError.h"

namespace brasquelin {
namespace {

TEST(WindowsPaths, shortFormOfADirectoryWithBlanks) {
    const ScratchDirectory scratch;
    std::filesystem::create_directory(scratch.path() / L"A long name with blanks");
    const std::string shortForm = shortPath(scratch / "A long name with blanks");
    EXPECT_EQ(shortForm.find(' '), std::string::npos) << shortForm;
    EXPECT_TRUE(directoryExists(shortForm)) << shortForm;
    EXPECT_TRUE(shortPath(scratch / "missing").empty());
    EXPECT_TRUE(shortPath("").empty());
}

TEST(WindowsPaths, shortFormBeyondTheFirstBuffer) {
    const ScratchDirectory scratch;
    std::string deep = "\\\\?\\" + utf8(std::filesystem::weakly_canonical(scratch.path()));
    // Names that are their own short form, so that the result is long, too.
    for (int level = 0; level < 150; ++level) deep += "\\ABCDEFG" + std::to_string(level % 10);
    std::error_code failed;
    std::filesystem::create_directories(fromUtf8(deep), failed);
    if (failed) GTEST_SKIP() << "paths of this length cannot be made here";
    EXPECT_GT(shortPath(deep).size(), 1024U);
}

TEST(WindowsPaths, fileSystemRoots) {
    for (const char* root : {"C:\\", "C:/", "C:", "\\", "/", "C:\\x\\..", "\\\\server\\share", "\\\\?\\C:\\"}) {
        EXPECT_TRUE(isFileSystemRoot(root)) << root;
    }
    for (const char* other : {"", "C:\\windows", "x", "\\windows"}) EXPECT_FALSE(isFileSystemRoot(other)) << other;
}

TEST(WindowsPaths, onlyExistingRelativePathsAreAnchored) {
    const ScratchDirectory scratch;
    std::filesystem::create_directory(scratch.path() / L"sub");
    scratch.write("sub\\x.bqp", "");
    scratch.write("x.bqp", "");
    const std::string before = currentDirectory();
    changeDirectory(utf8(scratch.path()));
    EXPECT_EQ(anchoredPath("sub\\x.bqp"), currentDirectory() + "\\sub\\x.bqp");
    for (const char* same : {"x.bqp", "sub\\missing.bqp", "C:\\windows", "\\windows"}) {
        EXPECT_EQ(anchoredPath(same), same);
    }
    changeDirectory(before);
}

TEST(WindowsPaths, aDriveAloneIsItsRoot) {
    const std::string before = currentDirectory();
    changeDirectory(utf8(std::filesystem::temp_directory_path()));
    const std::string drive = currentDirectory().substr(0, 2);
    changeDirectory(drive);
    EXPECT_EQ(currentDirectory(), drive + "\\");
    EXPECT_THROW(changeDirectory("C:\\no such directory"), RunTimeError);
    changeDirectory(before);
}

TEST(WindowsPaths, aDriveMeansItsRootWhereverTheProgramIs) {
    EXPECT_EQ(exactDirectory("C:"), "C:\\");
    EXPECT_EQ(exactDirectory("C:."), "");  // where that drive was left is nobody's choice
    EXPECT_EQ(exactDirectory("c:/WINDOWS/system32/.."), "C:\\windows");
}

}  // namespace
}  // namespace brasquelin
