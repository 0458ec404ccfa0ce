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
    EXPECT_EQ(".txt", extensionOfFilter("Text|*.txt|All|*.*", 0));
    EXPECT_EQ("", extensionOfFilter("Text|*.txt|All|*.*", 1));
    EXPECT_EQ("", extensionOfFilter("Both|*.txt;*.log", 0));
    EXPECT_EQ("", extensionOfFilter("Text|*.txt", 5));
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
