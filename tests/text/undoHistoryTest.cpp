#include "text/undoHistory.h"

#include <gtest/gtest.h>

#include <random>

#include "text/lineChange.h"

namespace brasquelin {
namespace {

using Lines = std::vector<std::string>;

TEST(LineChange, IsAllBetweenTheCommonBeginningAndEnd) {
    struct Case {
        Lines before, after;
        LineChange change;
    };
    const std::vector<Case> cases{
        {{}, {}, {}},
        {{"a"}, {"a"}, {1, {}, {}}},
        {{"a", "b", "c"}, {"a", "x", "y", "c"}, {1, {"b"}, {"x", "y"}}},
        {{"a", "a"}, {"a", "a", "a"}, {2, {}, {"a"}}},  // the end is not counted twice
        {{"a", "b", "a", "b"}, {"a", "b"}, {2, {"a", "b"}, {}}},
        {{"a", "b"}, {}, {0, {"a", "b"}, {}}},
    };
    for (const auto& [before, after, change] : cases) {
        EXPECT_EQ(change, changeBetween(before, after));
        Lines lines = before;
        lines.emplace_back("came since");
        change.applyTo(lines);
        EXPECT_EQ("came since", lines.back());
        EXPECT_EQ(after, Lines(lines.begin(), lines.end() - 1));
        change.takeBackFrom(lines);
        EXPECT_EQ(before, Lines(lines.begin(), lines.end() - 1));
    }
}

class Edited {
  public:
    void edit(const Lines& after) {
        LineChange change = changeBetween(lines, after);
        lines = after;
        const std::size_t bytes = change.bytes();
        history.add(std::move(change), bytes);
    }
    void undo() { history.undo().takeBackFrom(lines); }
    void redo() { history.redo().applyTo(lines); }

    UndoHistory<LineChange> history;
    Lines lines;
};

TEST(UndoHistory, RandomEditsLeadBackToTheFirstAndForthToTheLast) {
    std::mt19937 random(7);
    const auto below = [&](std::size_t n) { return n == 0 ? 0 : random() % n; };
    for (int round = 0; round < 50; ++round) {
        Edited edited;
        for (int i = 0; i < 200; ++i) {
            Lines after = edited.lines;
            const auto begin = after.begin() + static_cast<std::ptrdiff_t>(below(after.size() + 1));
            const auto end = begin + static_cast<std::ptrdiff_t>(below(static_cast<std::size_t>(after.end() - begin)));
            const auto at = after.erase(begin, end);
            after.insert(at, below(4), std::string(1, static_cast<char>('a' + below(3))));
            edited.edit(after);
            if (below(10) == 0) edited.undo();
        }
        const Lines last = edited.lines;
        while (edited.history.canUndo()) edited.undo();
        ASSERT_EQ(Lines(), edited.lines);
        ASSERT_TRUE(edited.history.isSaved());
        while (edited.history.canRedo()) edited.redo();
        while (edited.lines != last && edited.history.canUndo()) edited.undo();
        ASSERT_EQ(last, edited.lines);
    }
}

TEST(UndoHistory, KnowsWhetherTheSavedStateIsBack) {
    UndoHistory<int> history;
    EXPECT_TRUE(history.isSaved());
    EXPECT_EQ(nullptr, history.growing());
    history.add(1, 1);
    EXPECT_FALSE(history.isSaved());
    EXPECT_EQ(1, *history.growing());
    history.markSaved();
    EXPECT_EQ(nullptr, history.growing()) << "what was saved must be found again";
    history.add(2, 1);
    history.undo();
    EXPECT_TRUE(history.isSaved());
    EXPECT_EQ(2, *history.nextRedo());
    history.undo();
    EXPECT_FALSE(history.isSaved());
    history.add(3, 1);  // the saved state cannot come back
    EXPECT_FALSE(history.canRedo());
    EXPECT_FALSE(history.isSaved());
    history.undo();
    EXPECT_FALSE(history.isSaved());
}

TEST(UndoHistory, TheOldestStepsGoWhenAllTakeTooMuch) {
    UndoHistory<int> history(10);
    for (int i = 1; i <= 4; ++i) history.add(i, 4);
    EXPECT_EQ(2U, history.size());
    EXPECT_EQ(8U, history.bytes());
    *history.growing() = 5;
    history.resizeGrowing(6);
    EXPECT_EQ(10U, history.bytes());
    EXPECT_EQ(5, history.undo());
    EXPECT_EQ(3, history.undo());
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.isSaved()) << "the first state is gone with the first steps";
    history.add(6, 1000);
    EXPECT_EQ(1U, history.size()) << "the newest stays, however large";
    EXPECT_EQ(6, history.undo());
}

}  // namespace
}  // namespace brasquelin
