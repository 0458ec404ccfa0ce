#include "editor/lineGroups.h"

#include <gtest/gtest.h>

#include <functional>

#include "text/runTimeError.h"

namespace brasquelin {
namespace {

class LineGroups : public testing::Test {
  protected:
    using Lines = std::vector<std::string>;

    static bool failsWith9(const std::function<void()>& action) {
        try {
            action();
        } catch (const RunTimeError& error) {
            return error.number() == ErrorNumber::subscriptOutOfRange;
        }
        return false;
    }

    static constexpr EditorList commands = EditorList::commands;
    Lines lines;
};

TEST_F(LineGroups, SeveralGoTogetherToAnyPlace) {
    const Lines all{"a", ".1", "b", "c", ".2", ".3", "d"};
    const LineNumbers some = wholeGroups(all, commands, {1, 4, 5});
    EXPECT_EQ(some, (LineNumbers{0, 1, 3, 4, 5}));
    EXPECT_EQ(wholeGroups(all, EditorList::include, {1, 4}), (LineNumbers{1, 4}));
    const std::vector<std::size_t> ends{0, 0, 0, 1, 1, 1, 1, 2};  // by the place where they are dropped
    for (std::size_t place = 0; place < ends.size(); ++place) {
        lines = all;
        const LineNumbers moved = moveLines(lines, some, placeBetween(lines, commands, place));
        EXPECT_EQ(textOf(lines, moved), textOf(all, some)) << place;
        EXPECT_EQ(moved.front(), ends[place]) << place;
        EXPECT_EQ(lines.size(), all.size());
    }
}

TEST_F(LineGroups, RemovingTakesTheAttributeLinesAlong) {
    const Lines all{".lost", "For", ".VarName=i", ".VarStart=1", "Next", "last", ".x=1"};
    lines = all;
    for (const std::size_t attribute : {0U, 2U, 7U}) {
        EXPECT_FALSE(eraseGroups(lines, commands, {attribute}));
    }
    EXPECT_FALSE(eraseGroups(lines, commands, {}));
    EXPECT_EQ(lines, all);
    EXPECT_TRUE(eraseGroups(lines, EditorList::commands, {5}));
    EXPECT_TRUE(eraseGroups(lines, EditorList::commands, {1}));
    EXPECT_EQ(lines, (Lines{".lost", "Next"}));
    lines = {":Include a", ".odd", ".odd"};
    EXPECT_TRUE(eraseGroups(lines, EditorList::include, {1}));
    EXPECT_EQ(lines, (Lines{":Include a", ".odd"}));
}

TEST_F(LineGroups, GroupsMoveWholeAndTheSelectionFollows) {
    lines = {"For", ".VarName=i", "call", ".a=1", ".b=2", "Next"};
    EXPECT_EQ(moveGroupUp(lines, commands, 4), 2U);
    EXPECT_EQ(lines, (Lines{"call", ".a=1", ".b=2", "For", ".VarName=i", "Next"}));
    EXPECT_EQ(moveGroupUp(lines, commands, 1), 1U);
    EXPECT_EQ(moveGroupDown(lines, commands, 5), 5U);
    EXPECT_EQ(moveGroupUp(lines, commands, {}), std::nullopt);
    EXPECT_EQ(lines.front(), "call");
    EXPECT_EQ(moveGroupDown(lines, commands, 3), 4U);
    EXPECT_EQ(lines, (Lines{"call", ".a=1", ".b=2", "Next", "For", ".VarName=i"}));
    EXPECT_EQ(moveGroupDown(lines, commands, {}), 1U) << "with nothing selected the first group, but only down";
    EXPECT_EQ(lines.front(), "Next");
    lines.clear();
    EXPECT_EQ(moveGroupDown(lines, commands, {}), std::nullopt);
}

TEST_F(LineGroups, MovesUpTo256GroupsOf256Lines) {
    lines.assign(256, "call");
    lines.insert(lines.end(), 255, ".x=1");
    EXPECT_EQ(moveGroupUp(lines, commands, 300), 299U);
    lines.emplace_back("one more");
    EXPECT_TRUE(failsWith9([&] { moveGroupUp(lines, commands, 5); }));
    Lines longGroup(2 + 256, ".x=1");
    longGroup[0] = longGroup[1] = "call";
    lines = longGroup;
    EXPECT_TRUE(failsWith9([&] { moveGroupDown(lines, commands, 0); }));
    EXPECT_EQ(lines, longGroup);
}

}  // namespace
}  // namespace brasquelin
