#include "text/text.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "support/scratchDirectory.h"
#include "support/slowReplacement.h"
#include "text/runTimeError.h"
#include "text/substitution.h"
#include "text/visibleText.h"

namespace brasquelin {
namespace {

ErrorNumber errorOf(std::string_view number) {
    try {
        toInteger16(number);
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return ErrorNumber::deviceError;
}

TEST(Text, PositionsCountCodePoints) {
    EXPECT_EQ(characterCount("aé€😀"), 4U);
    EXPECT_EQ(firstCharacters("aé€😀", 2), "aé");
    EXPECT_EQ(lastCharacters("aé€😀", 2), "€😀");
    EXPECT_EQ(fromCharacter("aé€😀", 3), "€😀");
    EXPECT_EQ(fromCharacter("ab", 3), "");
    EXPECT_EQ(withoutLast("aé"), "a");
    EXPECT_EQ(withoutLast("", 2), "");
}

TEST(Text, LetterCaseIsFoldedWithoutALocale) {
    EXPECT_EQ(lowerCase("ÀÉŽΣЖ Az"), "àéžσж az");
    EXPECT_TRUE(equalIgnoringCase("Été", "ÉTÉ"));
    EXPECT_TRUE(equalIgnoringCase("Ⱥb", "ⱥB"));  // the two letters differ in length
    EXPECT_FALSE(equalIgnoringCase("K", "\u212A"));
    EXPECT_TRUE(startsWithIgnoringCase("ÀBC", "àb"));
    EXPECT_FALSE(startsWithIgnoringCase("a", "ab"));
    EXPECT_TRUE(endsWithIgnoringCase("x.BQP", "bqp"));
    const TextMatch match = findIgnoringCase("xxÉtÉ", "éT");
    EXPECT_EQ(match.begin, 2U);
    EXPECT_EQ(match.end, 5U);
}

TEST(Text, LinesEndWithEitherMarkAndTheLastOneWithoutAny) {
    EXPECT_EQ(splitLines("a\r\nb\n\nc"), (Lines{"a", "b", "", "c"}));
    EXPECT_EQ(splitLines("a\r\n"), Lines{"a"});
    EXPECT_TRUE(splitLines("").empty());
}

TEST(Text, Utf8IsRecognised) {
    EXPECT_TRUE(isUtf8("plain é € 😀"));
    EXPECT_FALSE(isUtf8("caf\xE9"));
    EXPECT_FALSE(isUtf8("\xC0\xAF"));      // overlong
    EXPECT_FALSE(isUtf8("\xED\xA0\x80"));  // surrogate
    EXPECT_FALSE(isUtf8("cut \xE2\x82"));
}

TEST(Text, WholeNumbersHaveSixteenBits) {
    EXPECT_EQ(toInteger16(" -32768 "), -32768);
    EXPECT_EQ(toInteger16("+7"), 7);
    EXPECT_EQ(errorOf("32768"), ErrorNumber::overflow);
    EXPECT_EQ(errorOf("99999999999999999999"), ErrorNumber::overflow);
    for (const char* bad : {"", "x", "1.5", "1 2", "-"}) EXPECT_EQ(errorOf(bad), ErrorNumber::typeMismatch) << bad;
}

TEST(Substitution, ReplacesEveryReferenceInAnyLetterCaseWithoutRescanning) {
    EXPECT_EQ(replaceVar("name", "x", "$Name$ and $NAME$, not name"), "x and x, not name");
    EXPECT_EQ(replaceVar("a", "$a$", "$a$$a$"), "$a$$a$");
    EXPECT_EQ(replaceVar("a", "1", "$a$a$"), "1a$");
    EXPECT_EQ(replaceVar("été", "1", "$ÉTÉ$"), "1");
    EXPECT_EQ(replaceVar("", "x", "a$$b$$"), "axbx");
    EXPECT_EQ(replaceVar("a$b", "x", "$A$B$"), "x");
    EXPECT_EQ(replaceVar("other", "x", "$name$"), "$name$");
}

TEST(Substitution, PassesGiveWhatTheSlowRuleGives) {
    std::mt19937 random(3);
    const std::vector<std::string> pieces{"$", "$", "$", "a", "A", "bc", "é", "É", "index(", ")", "x"};
    const auto text = [&](std::size_t most) {
        std::string made;
        for (auto left = random() % (most + 1); left > 0; --left) made += pieces[random() % pieces.size()];
        return made;
    };
    for (int round = 0; round < 20000; ++round) {
        std::string slow = text(30);
        ReferenceText fast(slow);
        for (int pass = 0; pass < 8; ++pass) {
            const std::string name = random() % 8 == 0 ? text(3) : pieces[3 + random() % 5];
            const std::string value = text(6);
            const std::string before = slow;
            if (random() % 4 == 0) {
                fast.replaceForm("index", name, value);
                slow = replaceAll(slow, std::string("index($").append(name).append("$)"), value);
            } else {
                fast.replace(name, value);
                slow = replacedSlowly(name, value, slow);
            }
            ASSERT_EQ(fast.text(), slow) << before << " with " << name << "=" << value;
            ASSERT_EQ(fast.refersTo("a"), replacedSlowly("a", "", slow) != slow);
        }
    }
}

TEST(Substitution, OnePassIsLinearAndItsResultHasAnEnd) {
    const std::size_t references = 333'000;
    std::string line;
    for (std::size_t i = 0; i < references; ++i) line += "$g$";
    const auto begin = std::chrono::steady_clock::now();
    ReferenceText text(line);
    text.replace("g", "value");
    EXPECT_EQ(text.text().size(), references * 5);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    text.assign(line);
    for (const bool form : {false, true}) {
        const std::string value(mostExpandedBytes / references + 1, 'x');
        if (form) text.assign(replaceVar("g", "index($g$)", line));
        try {
            form ? text.replaceForm("index", "g", value) : text.replace("g", value);
            ADD_FAILURE() << "replaced";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.at("x.bqp", 3).reportWhileLoading({}),
                      "Error 6 : Overflow\r\nWhile loading 'x.bqp' at line 3\r\nWith its references replaced, the "
                      "line is longer than 16 MB.");
        }
    }
}

TEST(Substitution, AValueMayBringAReferenceForALaterName) {
    ReferenceText text("$first$-$b$");
    text.replace("first", "$b$");
    text.replace("b", "é");
    EXPECT_EQ(text.text(), "é-é");
    text.assign("$x$y$x$");
    text.replace("x", "$");
    EXPECT_TRUE(text.mayRefer());
    EXPECT_EQ(text.text(), "$y$");
    text.replace("y", "done");
    EXPECT_EQ(text.text(), "done");
}

TEST(Substitution, FormsRespectLetterCase) {
    ReferenceText text("index($c$) index($C$) Index($c$) $c$");
    text.replaceForm("index", "c", "3");
    EXPECT_EQ(text.text(), "3 index($C$) Index($c$) $c$");
    text.replace("c", "v");
    EXPECT_EQ(text.text(), "3 index(v) Index(v) v");
}

TEST(Substitution, DirectoriesAndDoubledBackslashes) {
    EXPECT_EQ(dirOf("C:\\Work\\P\\a.bqp"), "C:\\Work\\P");
    EXPECT_EQ(dirOf("/a/b"), "/a");
    EXPECT_EQ(dirOf("a.bqp"), "");
    EXPECT_EQ(doubleBackslashes("C:\\Work\\P"), "C:\\\\Work\\\\P");
    EXPECT_EQ(doubleBackslashes("C:\\abc"), "");
    EXPECT_EQ(doubleBackslashes("/data/a\\b"), "/data/a\\b");
}

TEST(Text, WhatWouldNotBeSeenIsShown) {
    EXPECT_EQ("a\u2409b <U+202E>\u00E9\U0001F600", visibleText("a\tb \u202E\u00E9\U0001F600"));
    EXPECT_EQ("bad \uFFFD\uFFFD \uFFFD\uFFFD\uFFFD.\uFFFD", visibleText("bad \xFF\xC3 \xED\xA0\x80.\xC3"));
    for (const char* unseen : {"\u200E", "\u200F", "\u061C", "\u202A", "\u202E", "\u2066", "\u2069", "\u200B"}) {
        EXPECT_TRUE(visibleText(unseen).starts_with("<U+")) << visibleText(unseen);
    }
    EXPECT_EQ("a\u240A", shownLine("a\n"));
    EXPECT_EQ(std::string(1000, 'x'), shownLine(std::string(1000, 'x')));
    EXPECT_EQ(std::string(1000, 'x') + " ...", shownLine(std::string(1001, 'x')));
    EXPECT_LT(shownLine(replaceAll(std::string(1000, 'x'), "x", "\u202E")).size(), 1100U);
}

TEST(Text, AnEditOfTheVisibleFormKeepsWhatItsSignsStandFor) {
    const std::string text = "a\tb\u202E\u00E9\t\xFF";
    const struct {
        std::string shown;
        std::string meant;
    } cases[] = {
        {visibleText(text), text},
        {"xa\u2409b<U+202E>\u00E9\u2409\uFFFD", "xa\tb\u202E\u00E9\t\xFF"},
        {"a\u2409b<U+202E>\u00E9\u2409\uFFFDy", "a\tb\u202E\u00E9\t\xFFy"},
        {"a\u2409bX<U+202E>\u00E9\u2409\uFFFD", "a\tbX\u202E\u00E9\t\xFF"},
        {"a\u2409b<U+202E\u00E9\u2409\uFFFD", "a\tb<U+202E\u00E9\t\xFF"},  // one character of the sign is gone
        {"a\u2409\uFFFD", "a\t\xFF"},
        {"\u2409", "\u2409"},  // typed: what was there was replaced as a whole
        {"", ""},
    };
    for (const auto& [shown, meant] : cases) EXPECT_EQ(meant, withEdit(text, shown)) << shown;
    EXPECT_EQ("<U+202E>", withEdit("<U+202E", "<U+202E>"));
}

}  // namespace
}  // namespace brasquelin
