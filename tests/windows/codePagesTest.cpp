#include "platform/codePages.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace brasquelin {
namespace {

// The bytes below hold for the Western code pages.
class WindowsCodePages : public testing::Test {
  protected:
    void SetUp() override {
        if (GetACP() != 1252 || GetOEMCP() != 437) GTEST_SKIP() << "needs the code pages 1252 and 437";
    }
};

TEST_F(WindowsCodePages, filesAreInTheAnsiPage) {
    EXPECT_EQ(decodeFile("caf\xE9 \x80"), "caf\u00E9 \u20AC");
    EXPECT_EQ(encodeFile("caf\u00E9 \u20AC"), "caf\xE9 \x80");
}

TEST_F(WindowsCodePages, whatTheAnsiPageCannotHoldIsSavedWithTheMark) {
    // A letter that only has a near relative in the page must not be flattened to it.
    for (const std::string text : {"\u0106wiek", "\u65E5\u672C", "\U0001F600"}) {
        EXPECT_EQ(encodeFile(text), "\xEF\xBB\xBF" + text);
        EXPECT_EQ(decodeFile(encodeFile(text)), text);
    }
}

TEST_F(WindowsCodePages, textThatLooksLikeTheMarkComesBack) {
    const std::string text = "\u00EF\u00BB\u00BF first";
    EXPECT_EQ(decodeFile(encodeFile(text)), text);
}

TEST_F(WindowsCodePages, everyByteSurvives) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes.push_back(static_cast<char>(byte));
    EXPECT_EQ(encodeFile(decodeFile(bytes)), bytes);
}

TEST_F(WindowsCodePages, batchAndListFilesAreInTheOemPage) {
    EXPECT_EQ(encodeOem("echo \u00E9\u00E8\u00FC\r\n"), "echo \x82\x8A\x81\r\n");
    EXPECT_EQ(decodeOem("C:\\p\\\x82.bqp"), "C:\\p\\\u00E9.bqp");
    EXPECT_EQ(encodeOem("\u00C0"), "A");  // the nearest letter of that page
    EXPECT_EQ(decodeOem("\xEF\xBB\xBF\u0106.bqp"), "\u0106.bqp");
}

}  // namespace
}  // namespace brasquelin
