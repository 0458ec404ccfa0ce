#include "check/checkFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "check/codes.h"
#include "platform/paths.h"
#include "support/programTest.h"
#include "text/text.h"

namespace brasquelin {
namespace {

/// A chapter of the manual: the code, its files in their order, and what is found.
struct Example {
    std::string code;
    std::vector<std::pair<std::string, std::string>> files;
    std::string found;
};

std::vector<Example> examplesOfManual() {
    std::vector<Example> examples;
    std::string block;
    for (const auto& line : splitLines(bytesOf(BRASQUELIN_SOURCE "/docs/checks.md"))) {
        if (line.starts_with("## ")) {
            examples.push_back({line.substr(3), {}, {}});
        } else if (line.starts_with("```")) {
            block = line.substr(3);
            if (!block.empty() && block != "found") examples.back().files.emplace_back(block, "");
        } else if (!block.empty()) {
            (block == "found" ? examples.back().found : examples.back().files.back().second) += line + "\n";
        }
    }
    return examples;
}

class CheckFile : public ProgramTest {
  protected:
    void SetUp() override {
        write("Brasquelin.ini", {"[config]", "BasicFunctionPath = \\functions.ini", "[/config]", "[var]", "[/var]"});
        write("functions.ini", {});
    }
    /// What is found, with the paths of the program directory as the manual writes them.
    std::string check(const std::string& name) const {
        Checker checker;
        checker.check(folder() + "/" + name);
        std::string text = asText(checker.findings(), false);
        for (const std::string separator : {"/", "\\"}) text = replaceAll(text, folder() + separator, "");
        return text;
    }
};

TEST_F(CheckFile, FindsWhatTheManualShows) {
    std::vector<std::string> codes;
    for (const auto& example : examplesOfManual()) {
        codes.push_back(example.code.substr(0, example.code.find(' ')));
        if (example.code.ends_with("(Windows)") && pathSeparator == '/') continue;
        for (const auto& [name, text] : example.files) writeText(name, text);
        ASSERT_FALSE(example.files.empty()) << example.code;
        EXPECT_EQ(check(example.files.front().first), example.found) << example.code;
        EXPECT_NE(example.found.find("[" + codes.back() + "]"), std::string::npos) << example.code;
        for (const auto& [name, text] : example.files) remove(name);
    }
    for (const auto& code : findingCodes) {
        EXPECT_EQ(std::count(codes.begin(), codes.end(), code.name), 1) << code.name;
    }
    EXPECT_EQ(codes.size(), findingCodes.size());
    EXPECT_EQ(commands(), Lines());
    EXPECT_EQ(messages(), Lines());
}

}  // namespace
}  // namespace brasquelin
