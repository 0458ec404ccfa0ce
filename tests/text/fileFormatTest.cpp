#include "text/fileFormat.h"

#include <gtest/gtest.h>

#include <string>

namespace brasquelin {
namespace {

std::string parsed(std::string_view line) {
    const auto found = parseLibraryLine(line);
    if (!found) return "none";
    return std::to_string(static_cast<int>(found->word)) + " '" + found->path + "' '" + found->parameters + "'" +
           (found->spaced ? "" : " unspaced");
}

TEST(FileFormat, LibraryLinesAreTakenByPosition) {
    EXPECT_EQ(parsed(":INCLUDE a b [param=x].bqs"), "0 'a b [param=x].bqs' ''");
    EXPECT_EQ(parsed(":plugin p.exe [PARAM=-x [1]]"), "1 'p.exe' '-x [1]'");
    EXPECT_EQ(parsed(":Check p.exe"), "2 'p.exe' ''");
    EXPECT_EQ(parsed(":plugin"), "1 '' '' unspaced");
    EXPECT_EQ(parsed(":plugin\tp.exe"), "1 'p.exe' '' unspaced");
    EXPECT_EQ(parsed("include a"), "none");
    EXPECT_EQ(parsed(":other a"), "none");
    for (const char* line : {":Include a.bqs", ":Plugin p.exe", ":Check p.exe [Param=-x y]"}) {
        EXPECT_EQ(writeLibraryLine(*parseLibraryLine(line)), line);
    }
}

TEST(FileFormat, KindsAndTitles) {
    EXPECT_EQ(kindOfFile("A.BQP"), FileKind::profile);
    EXPECT_EQ(kindOfFile("p.exe.bqs"), FileKind::library);
    EXPECT_EQ(kindOfFile("p.EXE"), FileKind::program);
    EXPECT_EQ(kindOfFile("bq"), FileKind::other);
    EXPECT_TRUE(hasExtension("a.BQP", FileKind::profile));
    EXPECT_FALSE(hasExtension("abqp", FileKind::profile));
    EXPECT_EQ(titleIn("#Brasquelin Profile  Title", FileKind::profile), " Title");
    EXPECT_EQ(titleIn("#Brasquelin Profile  Title", FileKind::library), "Title");
    EXPECT_EQ(titleIn("short", FileKind::library), "");
}

TEST(FileFormat, ASectionIsOpenBetweenItsTags) {
    SectionState any(Section::var);
    SectionState exact(Section::var, LetterCase::exact);
    EXPECT_TRUE(any.noteTag("[VAR]"));
    EXPECT_FALSE(exact.noteTag("[VAR]"));
    EXPECT_TRUE(any.isOpen() && !exact.isOpen());
    for (const char* line : {" [var]", "[profile]", "[/profile]", "[/var] "}) EXPECT_FALSE(any.noteTag(line));
    EXPECT_TRUE(any.isOpen());
    EXPECT_TRUE(any.noteTag("[/Var]"));
    EXPECT_FALSE(any.isOpen());
}

}  // namespace
}  // namespace brasquelin
