#include <gtest/gtest.h>

#include "platform/wx/fileFilter.h"
#include "platform/wx/messageLines.h"
#include "platform/wx/twipScale.h"

namespace brasquelin {
namespace {

TEST(FileFilter, IsMadeFitForTheToolkit) {
    EXPECT_EQ("Text|*.txt|All|*", fileFilter("Text|*.txt|All|*.*", "*"));
    EXPECT_EQ("*.txt|*.txt", fileFilter("*.txt", "*"));
    EXPECT_EQ("All files|*", fileFilter("", "*"));
    EXPECT_EQ("Text|*.txt", fileFilter("Text|*.txt|lost", "*"));
}

TEST(FileFilter, MatchesInEitherCase) {
    EXPECT_EQ("Text *.txt|*.[tT][xX][tT];*.1|All|*", inEitherCase("Text *.txt|*.tXt;*.1|All|*"));
    EXPECT_EQ("C|*.[cChH]", inEitherCase("C|*.[ch]"));
}

TEST(FileFilter, CompletesTheNameOfASaveDialog) {
    const std::string filter = "Text|*.txt|Log|*.log; *.out|All|*.*";
    EXPECT_EQ("release-1.0.txt", withExtension("release-1.0", filter, 0)) << "a dot is no extension of the filter";
    for (const std::string complete : {"a.TXT", "a.log", "a.Out"}) {
        EXPECT_EQ(complete, withExtension(complete, filter, 0));
    }
    for (const std::size_t pair : {1U, 2U, 3U}) EXPECT_EQ("a", withExtension("a", filter, pair));
    EXPECT_EQ("a", withExtension("a", "", 0));
}

TEST(MessageLines, BreakBehindBlanksThenSeparatorsThenAnywhere) {
    EXPECT_EQ("one two\nthree", brokenIntoLines("one two\nthree", 10));
    EXPECT_EQ("one two \nthree", brokenIntoLines("one two three", 10));
    EXPECT_EQ("/long/\nnames/of/\npaths", brokenIntoLines("/long/names/of/paths", 9));
    EXPECT_EQ("aaaa\naaaa\naa\n", brokenIntoLines("aaaaaaaaaa\n", 4));
}

TEST(TwipScale, NeighboursKeepTouching) {
    const TwipScale scale(0.0691, 0.1193);
    for (int left = 0; left < 4000; left += 371) {
        EXPECT_EQ(scale.rect(left, left, 371, 371).GetRight() + 1, scale.rect(left + 371, 0, 5, 5).x);
    }
}

}  // namespace
}  // namespace brasquelin
