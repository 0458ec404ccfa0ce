#include "engine/expandProfileLine.h"

#include <gtest/gtest.h>

#include <deque>

#include "engine/engineTables.h"
#include "support/programTest.h"
#include "vars/variableTables.h"

namespace brasquelin {
namespace {

class ExpandProfileLine : public ProgramTest {
  protected:
    static void declare(const std::string& name, const std::string& type, const std::string& value = {}) {
        variableTables.profileVariables[1].append({name, type, "info", value});
    }
    static void assign(const std::string& entry) { variableTables.values[1].append(entry); }
    static std::string expand(std::string line) { return expandProfileLine(line, 1, "C:\\Work\\P\\a.bqp", 7); }
};

TEST_F(ExpandProfileLine, BuiltInsInAnyLetterCase) {
    EXPECT_EQ(expand("$ExePath$/tool $exepath$"), folder() + "/tool " + folder());
    EXPECT_EQ(expand("$scriptpath$ $ScriptPathDblSlash$ $INDEX$"), "C:\\Work\\P C:\\\\Work\\\\P 7");
    EXPECT_EQ(expand("$scriptpathdbslash$ $exepathdbslash$ $foo$"), "$scriptpathdbslash$ $exepathdbslash$ $foo$");
}

TEST_F(ExpandProfileLine, GlobalsMayHoldReferencesToLaterNames) {
    setGlobals({{"Dir", "/data/$color$"}, {"Other", "$Dir$"}});
    declare("color", "Text", "red");
    EXPECT_EQ(expand("$dir$ $other$"), "/data/red $Dir$");
}

TEST_F(ExpandProfileLine, AssignmentsWinOverDeclaredValues) {
    declare("b", "Text", "$a$");
    declare("a", "Text", "declared");
    assign("A=given");
    EXPECT_EQ(expand("$a$ $b$"), "given declared");
}

TEST_F(ExpandProfileLine, ListItemsByNumberAndByText) {
    declare("color", "list(red||green||blue)", "2");
    EXPECT_EQ(expand("$color$"), "green");
    assign("color=list(3)");
    EXPECT_EQ(expand("$color$ index($color$) index($Color$)"), "blue 3 index(blue)");
    variableTables.values[1].resetCount();
    assign("color=list(4)");
    EXPECT_EQ(expand("$color$"), "Error");
    variableTables.values[1].resetCount();
    assign("color=");
    EXPECT_EQ(expand("[$color$] index($color$) [text($color$)]"), "[] 0 []");
}

TEST_F(ExpandProfileLine, CombLabelsAndValues) {
    declare("opt", "Comb(Fast[-O2]||None[-O0])", "1");
    declare("color", "List(red||green)");
    EXPECT_EQ(expand("$opt$"), "-O2");
    assign("opt=-O0");
    assign("color=green");
    EXPECT_EQ(expand("$opt$ text($opt$) index($opt$)"), "-O0 None 2");
    EXPECT_EQ(expand("text($color$)"), "None");  // a list keeps the label of the comb before it
}

TEST_F(ExpandProfileLine, ChoiceErrorsShowOnlyWhereTheLineRefersToTheVariable) {
    declare("color", "List(red)", "5");
    declare("opt", "Comb(a[b])", "x");
    declare("none", "List(red)", "0");
    EXPECT_EQ(expand("plain $foo$ [$none$]"), "plain $foo$ []");
    EXPECT_EQ(errorOf([] { expand("$color$"); }), ErrorNumber::subscriptOutOfRange);
    EXPECT_EQ(errorOf([] { expand("$opt$"); }), ErrorNumber::typeMismatch);
    assign("none=list(0)");
    EXPECT_EQ(errorOf([] { expand("no reference at all"); }), ErrorNumber::subscriptOutOfRange);
}

/// What is kept of a line belongs to its text and to the names that it was looked at with.
TEST_F(ExpandProfileLine, LongLinesThatComeAgainFollowTheTables) {
    const auto times = [](std::size_t count, const std::string& piece) {
        std::string text;
        while (count-- > 0) text += piece;
        return text;
    };
    for (const std::size_t length : {1000, 400'000}) {  // the longer one is more than is ever kept
        variableTables.reset();
        declare("a", "Text", "x");
        std::string line = times(length, "$a$ $b$ ");
        const auto expanded = [&line](int level) { return expandedLine(line, level, "/a.bqp", 1); };
        for (int again = 0; again < 2; ++again) {
            EXPECT_TRUE(expanded(1) == times(length, "x $b$ ")) << length;
            EXPECT_TRUE(expanded(2) == line) << length;
        }
        declare("b", "Text", "y");
        EXPECT_TRUE(expanded(1) == times(length, "x y ")) << length;
        line.replace(line.size() - 4, 3, "$A$");
        EXPECT_TRUE(expanded(1) == times(length - 1, "x y ") + "x x ") << length;
    }
}

TEST_F(ExpandProfileLine, MoreLongLinesThanAreKept) {
    declare("a", "Text", "x");
    std::deque<std::string> lines;
    for (int i = 0; i < 300; ++i) lines.push_back("$a$" + std::string(8000, '-') + std::to_string(i));
    for (int again = 0; again < 2; ++again) {
        for (const auto& line : lines) EXPECT_EQ(expandedLine(line, 1, "/a.bqp", 1), "x" + line.substr(3));
    }
}

TEST_F(ExpandProfileLine, PluginVariablesComeLastAndTheRowBehindThemCountsToo) {
    EXPECT_EQ(expand("a$$b $x$"), "ab $x$");  // the unused row is an empty name
    variableTables.pluginResults[1].append({"x", "1"});
    variableTables.pluginResults[1].append({"y", "2"});
    variableTables.pluginResults[1].resetCount();
    EXPECT_EQ(expand("$x$ $y$"), "1 $y$");
    std::string line = "$x$ $index$";
    EXPECT_EQ(expandProfileLine(line, 1, "a.bqp", 3), "1 3");
    EXPECT_EQ(line, "$x$ 3");
}

}  // namespace
}  // namespace brasquelin
