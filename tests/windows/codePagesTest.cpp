#include "platform/codePages.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace brasquelin {
namespace {

TEST(WindowsCodePages, NewFilesAreInTheAnsiPageAndBatchFilesInTheOemPage) {
    if (GetACP() != 1252 || GetOEMCP() != 437) GTEST_SKIP() << "needs the code pages 1252 and 437";
    EXPECT_EQ(encodeFile("caf\u00E9 \u20AC"), "caf\xE9 \x80");
    // A letter that only has a near relative in the page must not be flattened to it.
    for (const std::string text : {"\u0106wiek", "\u65E5\u672C", "\U0001F600"}) {
        EXPECT_EQ(encodeFile(text), "\xEF\xBB\xBF" + text);
    }
    EXPECT_EQ(encodeOem("echo \u00E9\u00E8\u00FC\r\n"), "echo \x82\x8A\x81\r\n");
    EXPECT_EQ(encodeOem("\u00C0"), "A");  // the nearest letter of that page
}

}  // namespace
}  // namespace brasquelin
