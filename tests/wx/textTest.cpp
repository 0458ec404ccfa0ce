#include <gtest/gtest.h>

#include "platform/wx/messageLines.h"
#include "platform/wx/twipScale.h"

namespace brasquelin {
namespace {

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
