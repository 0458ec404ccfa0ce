#include "platform/files.h"

#include <gtest/gtest.h>

#include "platform/codePages.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "support/programTest.h"

namespace brasquelin {
namespace {

class Files : public ProgramTest {
  protected:
    using Names = std::vector<std::string>;
};

TEST_F(Files, AreReplacedWhole) {
    const std::string path = folder() + "/x.txt";
    writeFile(path, "first");
    saveFile(path, "second");
    EXPECT_EQ(readFileBytes(path), "second");
    EXPECT_EQ(listFiles(folder()), Names{"x.txt"});
    EXPECT_TRUE(deleteFile(path));
    EXPECT_FALSE(deleteFile(path));
}

TEST_F(Files, ErrorsTellWhatIsWrong) {
    EXPECT_EQ(errorOf([this] { readFileBytes(folder() + "/none"); }), ErrorNumber::fileNotFound);
    EXPECT_EQ(errorOf([this] { readFileBytes(folder() + "/none/x"); }), ErrorNumber::pathNotFound);
    EXPECT_EQ(errorOf([this] { writeFile(folder() + "/none/x", ""); }), ErrorNumber::pathNotFound);
    EXPECT_EQ(errorOf([this] { writeFile(folder(), ""); }), ErrorNumber::pathFileAccess);
    EXPECT_EQ(errorOf([this] { changeDirectory(folder() + "/none"); }), ErrorNumber::pathNotFound);
}

TEST_F(Files, ListsAreSortedWithoutRegardToLetterCase) {
    for (const char* name : {"b.txt", "A.txt", "c.txt", "dir/x"}) write(name, {});
    EXPECT_EQ(listFiles(folder()), (Names{"A.txt", "b.txt", "c.txt"}));
    EXPECT_EQ(listDirectories(folder()), Names{"dir"});
    EXPECT_TRUE(listFiles(folder() + "/none").empty());
}

TEST_F(Files, TextIsKeptUntilItChanges) {
    write("x.txt", {"one", "two"});
    const auto first = readTextFile(folder() + "/x.txt");
    EXPECT_EQ(first->lines, (Names{"one", "two"}));
    EXPECT_EQ(readTextFile(folder() + "/x.txt"), first);
    writeFile(folder() + "/x.txt", "three");
    EXPECT_EQ(readTextFile(folder() + "/x.txt")->lines, Names{"three"});
}

TEST_F(Files, ShortPathsExist) {
    write("Sub Folder/x.txt", {});
    EXPECT_EQ(shortPath(folder() + "/none"), "");
    EXPECT_EQ(shortPath(""), "");
    EXPECT_NE(shortPath(folder() + "/Sub Folder"), "");
    EXPECT_TRUE(fileExists(shortPath(folder() + "/Sub Folder/x.txt")));
    EXPECT_FALSE(isFileSystemRoot(folder()));
}

TEST(CodePages, AByteOrderMarkMeansUtf8) {
    EXPECT_EQ(decodeFile("\xEF\xBB\xBF"
                         "caf\xC3\xA9"),
              "café");
    EXPECT_EQ(decodeFile("caf\xE9 \x80"), "café €");
    EXPECT_EQ(decodeFile(encodeFile("日本 é")), "日本 é");
}

}  // namespace
}  // namespace brasquelin
