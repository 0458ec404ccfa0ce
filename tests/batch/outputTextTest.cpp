#include "batch/outputText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "batch/outputTail.h"
#include "platform/codePages.h"
#include "support/scratchDirectory.h"

namespace brasquelin {
namespace {

std::string shown(std::string_view bytes, std::size_t step) {
    OutputText text(1000);
    for (; !bytes.empty(); bytes.remove_prefix(std::min(step, bytes.size()))) text.append(bytes.substr(0, step));
    return text.text();
}

TEST(OutputTextTest, LinesAreAsATerminalLeavesThem) {
    const struct {
        std::string_view printed;
        std::string_view seen;
    } cases[] = {
        {"a\r\nb\nc", "a\nb\nc"},
        {" 10 %\r 20 %\r100 %\ndone\r\n", "100 %\ndone\n"},
        {"longer\rshort", "shortr"},
        {"longer\r\x1b[Kno", "no"},
        {"12345\b\b\x1b[1Kx", "   x5"},
        {"abc\b\bX\b\b\b\bY", "YXc"},
        {"a\tb\r\tc", "a       c"},
        {"\x1b[1;31mred\x1b[0m \x1b[38;5;9mmore\x1b[m", "red more"},
        {"\x1b]0;a title\x07text\x1b]8;;http://x\x1b\\link\x1b(B.", "textlink."},
        {"\x1b]no end\nnext \x1b[12\nline", "\nnext \nline"},
        {"\x1b\x1b[31m\x1b[3\x1b[0mx\x1bM", "x"},
        {std::string_view("a\0b\x07\x7f", 5), "a\u2400b\u2407\u2421"},
    };
    for (const auto& [printed, seen] : cases) {
        for (const std::size_t step : {1, 2, 3, 1000}) {
            EXPECT_EQ(seen, shown(printed, step)) << "in steps of " << step;
        }
    }
    for (const std::size_t step : {1, 2, 1000}) {
        EXPECT_EQ("\u00FCr\u00FC\u00DF", shown(encodeOem("gr\u00FC\u00DF\r\u00FC"), step)) << "in steps of " << step;
    }
}

TEST(OutputTextTest, OnlyTheEndIsKeptAndLongLinesAreBroken) {
    OutputText text(100);
    for (int i = 1000; i < 1100; ++i) text.append("line " + std::to_string(i) + "\n");
    const std::string kept = text.text();
    EXPECT_TRUE(kept.starts_with("[... ")) << kept;
    EXPECT_TRUE(kept.ends_with("line 1098\nline 1099\n")) << kept;
    EXPECT_GE(kept.size(), 100U);
    EXPECT_LE(kept.size(), 300U);

    text = OutputText(100000);
    text.append(std::string(9000, 'x'));
    EXPECT_EQ(9002U, text.text().size());
}

TEST(OutputTextTest, TheTailFollowsAFileThatGrows) {
    const ScratchDirectory directory;
    OutputTail tail(20);
    const std::string file = directory / "out";
    tail.show(file, 4, OutputTail::growing);
    EXPECT_EQ("", (tail.update(), tail.text()));
    directory.write("out", "old\nfirst\n");
    EXPECT_TRUE(tail.update());
    EXPECT_FALSE(tail.update());
    directory.write("out", "old\nfirst\nnext");
    EXPECT_TRUE(tail.update());
    tail.show(file, 4, 14);  // its end is known: nothing is read twice
    EXPECT_FALSE(tail.update());
    EXPECT_EQ("first\nnext", tail.text());

    tail.show(file, 0, 3);
    EXPECT_TRUE(tail.update());
    EXPECT_EQ("old", tail.text());

    directory.write("out", std::string(100'000, 'x') + "cut\nwhole\nlines\nstand\n");
    tail.show(file, 0, OutputTail::growing);
    EXPECT_TRUE(tail.update());
    EXPECT_EQ("whole\nlines\nstand\n", tail.text().substr(tail.text().find('\n') + 1));
}

}  // namespace
}  // namespace brasquelin
