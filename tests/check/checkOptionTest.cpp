// "--check" of the program as it is shipped.
#include <gtest/gtest.h>

#include "support/programRun.h"
#include "text/text.h"

namespace brasquelin {
namespace {

TEST(CheckOption, TellsFindingsAndWhatItCouldNotLookAt) {
    ProgramRun program;
    const std::string good = program.writeProfile("good one.bqp", "", "line\n.text=echo $x$");
    program.writeLines("bad \u00E9.bqp", "#Brasquelin Profile Bad\n[profile]\nNext\n\"what\"");
    const std::string next =
        "bad \u00E9.bqp:3:1: error: Error 5 : Invalid procedure call or argument [next-without-for]";
    EXPECT_EQ(program.run("--check \"good one.bqp\" line.bqs Brasquelin.ini"), 0);
    EXPECT_EQ(program.read("out.txt") + program.read("err.txt"), "");
    EXPECT_EQ(program.run("--check \"bad \u00E9.bqp\" \"good one.bqp\""), 1);
    EXPECT_EQ(splitLines(program.read("out.txt")).front(), next);
    EXPECT_EQ(program.run("--check \"bad \u00E9.bqp\" none.bqp"), 2);
    EXPECT_EQ(splitLines(program.read("out.txt")).front(), next);
    EXPECT_EQ(splitLines(program.read("err.txt")), Lines{"brasquelin: 'none.bqp': Error 53 : File not found"});
    EXPECT_EQ(program.run("--check --format json \"bad \u00E9.bqp\""), 1);
    for (const std::string part : {"\"version\": 1,", "\"file\": \"bad \u00E9.bqp\",", "\"line\": 3,", "\"column\": 1,",
                                   "\"severity\": \"error\",", "unknown function '\\\"what\\\"'", "\"errors\": 2,"}) {
        EXPECT_NE(program.read("out.txt").find(part), std::string::npos) << part;
    }
    EXPECT_EQ(program.run("--check --format xml good.bqp"), 2);
    EXPECT_EQ(program.run("--check"), 2);
    EXPECT_FALSE(program.exists("data"));
}

}  // namespace
}  // namespace brasquelin
