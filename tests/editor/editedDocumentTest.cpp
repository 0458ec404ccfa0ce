#include "editor/editedDocument.h"

#include <gtest/gtest.h>

#include <random>

#include "editor/lineGroups.h"
#include "support/programTest.h"

namespace brasquelin {
namespace {

constexpr EditorList allLists[]{EditorList::include, EditorList::variables, EditorList::commands};

class EditedDocumentTest : public testing::Test {
  protected:
    using Lines = std::vector<std::string>;

    std::size_t below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }

    /// One edit of any kind, at any place.
    void editAnything() {
        if (below(8) == 0) return edited_.rename("name " + std::to_string(below(100)));
        const EditorList which = allLists[below(3)];
        const std::size_t line = below(document().list(which).size());
        edited_.change([&](ProfileDocument& changed) {
            const std::string text = (below(2) == 0 ? "." : "") + std::to_string(below(9));
            const bool empty = changed.list(which).empty();
            switch (below(6)) {
                case 0:
                    return (void)eraseGroups(changed.list(which), which, {line});
                case 1:
                    return (void)moveGroupUp(changed.list(which), which, line);
                case 2:
                    return (void)moveLines(changed.list(which), {line}, 0);
                case 3:
                    return below(9) == 0 ? clearList(changed, which) : changed.rename(text);
                case 4:
                    return empty ? (void)changed.pluginNames.append(text) : changed.replaceLine(which, line, text);
                default:
                    changed.append(which, {text, "." + text});
            }
        });
    }

    /// The file and what is kept beside it.
    Lines whole() const {
        Lines lines = documentLines(document());
        lines.insert(lines.end(), document().pluginNames.begin(), document().pluginNames.end());
        return lines;
    }
    void append(const std::string& line) {
        edited_.change([&](ProfileDocument& changed) { changed.append(EditorList::commands, {line}); });
    }
    const ProfileDocument& document() const { return edited_.document(); }

    std::mt19937 random_{20};
    EditedDocument edited_;
};

TEST_F(EditedDocumentTest, AnySequenceOfEditsIsUndoneAndRedoneByteForByte) {
    for (int round = 0; round < 30; ++round) {
        SCOPED_TRACE(round);
        edited_.replace([](ProfileDocument& changed) { changed.listVar = {"x", ".Type=Text"}; });
        const Lines first = whole();
        for (int i = 0; i < 200; ++i) editAnything();
        const Lines last = whole();
        for (int turn = 0; turn < 2; ++turn) {
            std::size_t steps = 0;
            for (; edited_.canUndo(); ++steps) edited_.undo();
            EXPECT_GT(steps, 100U);
            EXPECT_EQ(whole(), first);
            EXPECT_TRUE(edited_.isSaved());
            while (edited_.canRedo()) edited_.redo();
            EXPECT_EQ(whole(), last);
        }
        for (auto back = below(100); back > 0; --back) edited_.undo();
        editAnything();
        while (edited_.canUndo()) edited_.undo();
        EXPECT_EQ(whole(), first);
    }
}

TEST_F(EditedDocumentTest, TheSavedStateIsFoundAgainOnBothSides) {
    append("one");
    EXPECT_FALSE(edited_.isSaved());
    edited_.markSaved();
    append("two");
    edited_.undo();
    EXPECT_TRUE(edited_.isSaved());
    edited_.undo();
    EXPECT_FALSE(edited_.isSaved());
    edited_.redo();
    EXPECT_TRUE(edited_.isSaved());
    edited_.undo();
    append("three");  // what was saved cannot come back
    edited_.undo();
    EXPECT_FALSE(edited_.isSaved());
    edited_.replace([](ProfileDocument&) {});
    EXPECT_TRUE(edited_.isSaved());
    EXPECT_FALSE(edited_.canUndo());
    edited_.markUnsaved();
    append("four");
    edited_.undo();
    EXPECT_FALSE(edited_.isSaved());
}

TEST_F(EditedDocumentTest, AFailedOrEmptyChangeIsNoStep) {
    edited_.change([](ProfileDocument&) {});
    const auto failing = [](ProfileDocument& changed) {
        changed.append(EditorList::commands, {"half"});
        throw RunTimeError(ErrorNumber::subscriptOutOfRange);
    };
    EXPECT_THROW(edited_.change(failing), RunTimeError);
    EXPECT_THROW(edited_.replace(failing), RunTimeError);
    EXPECT_TRUE(document().listCommand.empty());
    EXPECT_FALSE(edited_.canUndo());
}

TEST_F(EditedDocumentTest, TypingTheNameIsOneStepUntilSomethingComesBetween) {
    for (const char* name : {"a", "ab", "abc"}) edited_.rename(name);
    append("one");
    edited_.rename("abcd");
    edited_.markSaved();
    edited_.rename("abcde");
    Lines names;
    for (; edited_.canUndo(); edited_.undo()) names.push_back(document().profileName);
    EXPECT_EQ(names, (Lines{"abcde", "abcd", "abc", "abc"}));
    EXPECT_EQ(document().profileName, "newprofile");
}

TEST_F(EditedDocumentTest, TellsWhereItChanged) {
    for (const char* line : {"one", "two", "three"}) append(line);
    edited_.change([](ProfileDocument& changed) { eraseLines(changed.listCommand, {1}); });
    const DocumentPlace place = edited_.undo();
    EXPECT_EQ(place.list, EditorList::commands);
    EXPECT_EQ(place.line, 1U);
    edited_.rename("n");
    EXPECT_EQ(edited_.undo().list, EditorList::none);
}

}  // namespace
}  // namespace brasquelin
