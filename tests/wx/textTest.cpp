#include <gtest/gtest.h>

#include "platform/wx/colours.h"
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

TEST(Colours, DimmedTextCanBeReadOnAnyGround) {
    EXPECT_NEAR(contrast(*wxBLACK, *wxWHITE), 21, 0.01);
    EXPECT_NEAR(contrast(wxColour(118, 118, 118), *wxWHITE), 4.54, 0.01);
    for (const auto& [text, ground] : {std::pair(wxColour(0, 0, 0), wxColour(255, 255, 255)),
                                       std::pair(wxColour(46, 52, 54), wxColour(246, 245, 244)),
                                       std::pair(wxColour(238, 238, 236), wxColour(45, 45, 45)),
                                       std::pair(wxColour(255, 255, 255), wxColour(0, 0, 0))}) {
        const wxColour dim = dimmed(text, ground);
        EXPECT_GE(contrast(dim, ground), 4.5) << ground.GetAsString();
        EXPECT_LT(contrast(dim, ground), 0.7 * contrast(text, ground)) << ground.GetAsString();
    }
    EXPECT_EQ(dimmed(wxColour(140, 140, 140), *wxWHITE), wxColour(140, 140, 140)) << "it cannot be read as it is";
}

TEST(TwipScale, NeighboursKeepTouching) {
    const TwipScale scale(0.0691, 0.1193);
    for (int left = 0; left < 4000; left += 371) {
        EXPECT_EQ(scale.rect(left, left, 371, 371).GetRight() + 1, scale.rect(left + 371, 0, 5, 5).x);
    }
}

}  // namespace
}  // namespace brasquelin
