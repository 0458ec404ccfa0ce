#include "platform/files.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/codePages.h"
#include "platform/listFile.h"
#include "platform/paths.h"
#include "platform/systemWriting.h"
#include "platform/temporaryName.h"
#include "platform/textFiles.h"
#include "support/programTest.h"
#include "text/text.h"
#include "vars/rememberedValues.h"

namespace brasquelin {
namespace {

class Files : public ProgramTest {
  protected:
};

TEST_F(Files, AreReplacedWhole) {
    const std::string name = "日本 Ć.txt";  // outside the code page
    const std::string path = folder() + "/" + name;
    writeFile(path, "first");
    saveFile(path, "second");
    EXPECT_EQ(readFileBytes(path), "second");
    changeDirectory(folder());
    writeFile(name, "third");
    EXPECT_EQ(readFileBytes(path), "third");
    EXPECT_EQ(listFiles(folder()), Lines{name});
    EXPECT_TRUE(deleteFile(path));
    EXPECT_FALSE(deleteFile(path));
}

TEST_F(Files, BehindALinkAreReplacedThere) {
    write("sub/real.txt", {"old"});
    const std::filesystem::path link = fromUtf8(folder() + "/link.txt");
    const std::filesystem::path target = std::filesystem::path("sub") / "real.txt";
    std::error_code failed;
    std::filesystem::create_symlink(target, link, failed);
    if (!is_symlink(link)) GTEST_SKIP() << "links cannot be made here " << failed.message();
    for (const auto write : {saveFile, writeFile}) {
        write(folder() + "/link.txt", "new");
        EXPECT_TRUE(is_symlink(link));
        EXPECT_EQ(read("sub/real.txt"), "new");
        remove("sub/real.txt");  // then it is created there
    }
    EXPECT_TRUE(deleteFile(folder() + "/link.txt"));
    EXPECT_TRUE(listFiles(folder()).empty());
}

TEST_F(Files, HardLinksStayLinksOfOneFile) {
    write("one.txt", {"a text that is longer than the new one"});
    std::filesystem::create_hard_link(folder() + "/one.txt", folder() + "/other.txt");
    for (const std::string text : {"short", "", "longer than anything that stood there before this"}) {
        saveFile(folder() + "/one.txt", text);
        EXPECT_EQ(read("other.txt"), text);
    }
    EXPECT_EQ(listFiles(folder()), (Lines{"one.txt", "other.txt"}));
}

TEST_F(Files, NamesAsLongAsTheSystemTakesThemAreSaved) {
    std::string name(253, 'n');
    for (const char* end : {"é", "ab"}) {
        const std::string path = folder() + "/" + name + end;
        saveFile(path, "first");
        saveFile(path, end);
        EXPECT_EQ(readFileBytes(path), end);
    }
    EXPECT_EQ(listFiles(folder()).size(), 2U);
    EXPECT_EQ(errorOf([&] { saveFile(folder() + "/" + name + "abc", ""); }), ErrorNumber::pathFileAccess);
}

TEST_F(Files, OnTheirWayHaveOneNameForEachWhoWritesThem) {
    const auto open = [this] { return openTemporary(fromUtf8(folder()), "x.ini"); };
    const auto first = open()->path();
    EXPECT_FALSE(std::filesystem::exists(first));
    writeBytes(utf8(first.filename()), "left by a program that was killed");
    {
        const auto one = open();
        const auto other = open();
        EXPECT_EQ(one->path(), first);
        EXPECT_NE(other->path(), first);
        EXPECT_EQ(std::filesystem::file_size(first), 0U);
        other->setKept(true);
    }
    EXPECT_EQ(listFiles(folder()), Lines{"x.ini.1.brasquelin~"});
}

TEST_F(Files, OnTheirWayHaveNamesThatAreCutBetweenCodePoints) {
    EXPECT_EQ(temporaryName<char>("x", 0, 255), "x.brasquelin~");
    const std::string narrow = "éééééééééééééééééééééééééééééééé";
    std::wstring wide;  // of pairs
    while (wide.size() < 64) wide += {L'\xD83D', L'\xDE00'};
    for (std::size_t most = 50; most < 60; ++most) {
        const std::string cut = temporaryName(narrow, 12, most);
        EXPECT_TRUE(isUtf8(cut)) << cut;
        EXPECT_TRUE(cut.size() == most || cut.size() == most - 1) << cut;
        const std::wstring cutPairs = temporaryName(wide, 0, most);
        EXPECT_EQ(cutPairs.find(L'.') % 2, 0U) << most;
    }
    EXPECT_NE(temporaryName<char>(std::string(60, 'x') + "a", 0, 60),
              temporaryName<char>(std::string(60, 'x') + "b", 0, 60));
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
    EXPECT_EQ(listFiles(folder()), (Lines{"A.txt", "b.txt", "c.txt"}));
    EXPECT_EQ(listDirectories(folder()), Lines{"dir"});
    EXPECT_TRUE(listFiles(folder() + "/none").empty());
}

TEST_F(Files, AreRemovedAsWhatTheyAre) {
    for (const char* name : {"file.txt", "full/Été 日本.txt"}) write(name, {});
    std::filesystem::create_directory(folder() + "/empty");
    for (const char* kept : {"/empty", "/full", "/none", "/file.txt/none"}) EXPECT_FALSE(deleteFile(folder() + kept));
    for (const char* kept : {"/file.txt", "/full", "/none"}) EXPECT_FALSE(removeDirectory(folder() + kept)) << kept;
    EXPECT_TRUE(deleteFile(folder() + "/file.txt"));
    EXPECT_TRUE(deleteFile(folder() + "/full/Été 日本.txt"));
    for (const char* gone : {"/full", "/empty"}) EXPECT_TRUE(removeDirectory(folder() + gone)) << gone;
    EXPECT_TRUE(listDirectories(folder()).empty());
}

TEST_F(Files, TextIsKeptUntilItChanges) {
    write("x.txt", {"one", "two"});
    const auto first = readTextFile(folder() + "/x.txt");
    EXPECT_EQ(first->lines, (Lines{"one", "two"}));
    EXPECT_EQ(readTextFile(folder() + "/x.txt"), first);
    writeFile(folder() + "/x.txt", "three");
    EXPECT_EQ(readTextFile(folder() + "/x.txt")->lines, Lines{"three"});
}

TEST_F(Files, ShortPathsExist) {
    write("Sub Folder/x.txt", {});
    EXPECT_EQ(shortPath(folder() + "/none"), "");
    EXPECT_EQ(shortPath(""), "");
    EXPECT_NE(shortPath(folder() + "/Sub Folder"), "");
    EXPECT_TRUE(fileExists(shortPath(folder() + "/Sub Folder/x.txt")));
    EXPECT_FALSE(isFileSystemRoot(folder()));
}

TEST_F(Files, OnlyExistingRelativePathsWithADirectoryAreAnchored) {
    write("sub/x.bqp", {});
    write("x.bqp", {});
    changeDirectory(folder());
    EXPECT_EQ(anchoredPath("sub\\x.bqp"), joinPath(joinPath(utf8(std::filesystem::current_path()), "sub"), "x.bqp"));
    for (const char* same : {"x.bqp", "sub\\none.bqp", "C:\\windows", "\\windows"}) EXPECT_EQ(anchoredPath(same), same);
}

TEST_F(Files, WhatIsNoTextIsRefusedWithItsLine) {
    using namespace std::string_literals;
    writeBytes("x.txt", "one\r\ntwo\0hidden\r\n"s);
    for (const auto read : {+[](const std::string& path) { readTextFile(path); },
                            +[](const std::string& path) { ListFile list(path); }}) {
        try {
            read(folder() + "/x.txt");
            ADD_FAILURE() << "read";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.reportWhileLoading("list"),
                      "Error 75 : Path/File access error\r\nWhile loading '" + folder() +
                          "/x.txt' at line 2\r\nFrom file 'list'\r\nThe line holds a NUL character: this is no text.");
        }
    }
}

TEST_F(Files, ListsOfAnySizeAreReadPieceByPiece) {
    using namespace std::string_literals;
    std::mt19937 random(1);
    const Lines singles[] = {
        {"a", "b", "\r\n", "\n"}, {"a", "\r"}, {"a", "é", "😀", "\r\n"}, {"\x82", "\xC3", "\xA9", "\n"}};
    const Lines little{"a\0"s, "\r\0\n\0"s, "\n\0"s, "\x0D\x0A", "\x0A\x0D", "\x3D\xD8"};
    const Lines big{"\0a"s, "\0\r\0\n"s, "\0\n"s, "\x0D\x0A", "\x0A\x0D", "\xD8\x3D"};
    const Lines marks{"", "\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"};
    for (int round = 0; round < 2000; ++round) {
        const auto mark = random() % 4;
        const Lines& pieces = mark == 2 ? little : mark == 3 ? big : singles[random() % 4];
        std::string bytes = marks[mark];
        for (auto left = random() % 300; left > 0; --left) bytes += pieces[random() % pieces.size()];
        if (random() % 4 == 0) bytes += 'x';
        writeBytes("list.txt", bytes);
        // Kept in memory where it is small, whatever becomes of the file then.
        const std::size_t most = round % 3 == 0 ? 200 : 2000;
        ListFile list(folder() + "/list.txt", most, round % 3 == 1 ? 20 : 200);
        if (bytes.size() <= most) writeBytes("list.txt", "changed");
        Lines lines;
        for (std::string line; list.next(line);) lines.push_back(line);
        ASSERT_EQ(lines, splitLines(decodeOem(bytes))) << testing::PrintToString(bytes);
        ASSERT_EQ(list.lineCount(), lines.size());
    }
}

TEST_F(Files, WhatIsTooLargeIsRefusedInWords) {
    const std::string path = folder() + "/x.bqp";
    write("x.bqp", {"first", std::string(70, 'x')});
    EXPECT_EQ(errorOf([&] { ListFile list(path, 64); }), ErrorNumber::outOfMemory);
    EXPECT_EQ(readFirstLine(path), "first");
    std::filesystem::resize_file(path, mostTextBytes + 1);
    EXPECT_EQ(readFirstLine(path), "first");
    try {
        readTextFile(path);
        ADD_FAILURE() << "read";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.reportWhileLoading({}), "Error 7 : Out of memory\r\nWhile loading '" + path +
                                                    "'\r\nThe file holds more than 64 MB, the most that is read as a "
                                                    "text.");
    }
}

TEST_F(Files, CarriageReturnsEndLinesWhereNothingElseDoes) {
    writeBytes("x.txt", "one\rtwo\r\rfour");
    EXPECT_EQ(readTextFile(folder() + "/x.txt")->lines, (Lines{"one", "two", "", "four"}));
    writeBytes("x.txt", "one\rstill one\ntwo\r");
    EXPECT_EQ(readTextFile(folder() + "/x.txt")->lines, (Lines{"one\rstill one", "two\r"}));
}

/// Files in the Western code pages, read and written again.
class Encodings : public Files {
  protected:
    void SetUp() override {
        if (decodeFile("\xE9") != "é") GTEST_SKIP() << "needs the code page 1252";
    }
    /// The file's bytes after "added" has become its first line.
    std::string savedOver(const std::string& bytes, const std::string& added) const {
        writeBytes("pop.tmp", bytes);
        rememberValue("n", added);
        EXPECT_EQ(recallValue("n"), added);
        return read("pop.tmp");
    }
    const std::string mark = "\xEF\xBB\xBF";
};

TEST_F(Encodings, AreToldByTheMarkOrByTheBytes) {
    using namespace std::string_literals;
    EXPECT_EQ(decodeFile(mark + "café"), "café");
    EXPECT_EQ(decodeFile("café"), "café");
    EXPECT_EQ(decodeFile("caf\xE9 \x80"), "café €");
    EXPECT_EQ(decodeOem("café"), "café");
    EXPECT_EQ(decodeOem("\x82t\x82 \x81"), "été ü");
    EXPECT_EQ(decodeOem(mark + "Ć.bqp"), "Ć.bqp");
    EXPECT_EQ(decodeFile("\xFF\xFE\xE9\0\r\0\n\0\x3D\xD8\x00\xDE"s), "é\r\n😀");
    EXPECT_EQ(decodeFile("\xFE\xFF\0\xE9\xD8\x3D\xDE\x00"s), "é😀");
    EXPECT_EQ(decodeFile("\xFE\xFF\xD8\x3D\0a\xDE\x00\xD8\x3D"s), "\uFFFDa\uFFFD\uFFFD");
    EXPECT_EQ(decodeFile("\xFF\xFE\x41"), "\uFFFD");
    EXPECT_EQ(decodeFile(encodeFile("日本 é")), "日本 é");
}

TEST_F(Encodings, AreKeptWhenAFileIsSaved) {
    using namespace std::string_literals;
    EXPECT_EQ(savedOver("k=\xE9\r\n", "ö"), "n=\xF6\r\nk=\xE9\r\n");
    EXPECT_EQ(savedOver("k=é\n", "ö"), "n=ö\r\nk=é\r\n");
    EXPECT_EQ(savedOver(mark + "k=1\n", "2"), mark + "n=2\r\nk=1\r\n");
    EXPECT_EQ(savedOver("\xFF\xFEk\0=\0\xE9\0"s, "2"), mark + "n=2\r\nk=é\r\n");
    EXPECT_EQ(savedOver("k=1\n", "ö"), encodeFile("n=ö\r\nk=1\r\n"));
}

TEST_F(Encodings, ThatWouldNotBeReadBackBecomeUtf8WithTheMark) {
    EXPECT_EQ(savedOver("k=\xE9\n", "日本"), mark + "n=日本\r\nk=é\r\n");
    // In the code page, these are the bytes of a text in UTF-8, or of a mark.
    for (const std::string text : {"Ã©", "ï»¿ first", "ÿþ", "þÿ"}) {
        EXPECT_EQ(encodeFile(text, Encoding::ansi), mark + text);
        EXPECT_EQ(decodeFile(encodeFile(text, Encoding::ansi)), text);
    }
    EXPECT_EQ(encodeFile(mark + "x", Encoding::utf8), mark + mark + "x");
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes.push_back(static_cast<char>(byte));
    EXPECT_EQ(encodeFile(decodeFile(bytes), Encoding::ansi), bytes);  // some are undefined in the code page
}

}  // namespace
}  // namespace brasquelin
