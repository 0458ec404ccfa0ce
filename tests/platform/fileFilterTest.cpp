#include "platform/fileFilter.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ("É|*.[éÉ][żŻ][ßẞ]日", inEitherCase("É|*.éŻß日"));
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

}  // namespace
}  // namespace brasquelin
