#include "vars/loadPrompt.h"

#include <gtest/gtest.h>

#include "platform/paths.h"
#include "support/programTest.h"
#include "vars/variableTables.h"

namespace brasquelin {
namespace {

class LoadPrompt : public ProgramTest {
  protected:
    void load(PromptKind kind, const Lines& presets = {}, bool named = false) {
        writeText("x.bqp",
                  "#Brasquelin Profile  My tool\n[var]\n"
                  "title\n.Type=Text\n.Info=the title\n.Default=untitled\n"
                  "color\n.Type=List(red||green)\n.Info=\n.Default=2\n"
                  "speed\n.Type=Comb(Fast[-f]||Slow[-s])\n.Info=\n"
                  "input\n.Type=PathOpen(Text|*.txt)\n.Info=\n"
                  "log\n.Type=DblSSave(Log|*.log)\n.Info=\n.Default=old\n[/var]\n[command]");
        PromptOptions options;
        options.presets = presets;
        options.namedOnCommandLine = named;
        options.confirmed = [this](const Lines& values) { given.push_back(values); };
        options.runAtOnce = [this] { ++runAtOnce; };
        (kind == PromptKind::profile ? loadProfile : loadFunction)(folder() + "/x.bqp", options);
    }
    static Lines values() { return {variableTables.values[1].begin(), variableTables.values[1].end()}; }
    PromptForm& form() const { return *desktop_.prompt; }

    std::vector<Lines> given;  // the values of each confirmation
    int runAtOnce = 0;
};

TEST_F(LoadPrompt, RowsShowWhatTheirTypesNeed) {
    load(PromptKind::profile);
    EXPECT_EQ(windowCalls(), Lines{"show frmVarProfile modal"});
    EXPECT_EQ(form().title, "_My_tool");
    const auto& rows = form().rows;
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows[0].label + rows[0].text, "title=untitled");
    EXPECT_EQ(rows[1].choices, (Lines{"", "red", "green"}));
    EXPECT_EQ(rows[1].selected, 2);
    EXPECT_EQ(rows[2].selected, -1);
    EXPECT_EQ(rows[3].dialogFilter, "Text|*.txt");
    EXPECT_EQ(rows[3].dialogMode, "open");
    EXPECT_TRUE(rows[4].doubledBackslashes);
    EXPECT_TRUE(rows[4].showsPath());
}

TEST_F(LoadPrompt, RowsStandBelowEachOtherWithTheirOwnGaps) {
    load(PromptKind::profile, {}, true);
    EXPECT_EQ(windowCalls(), Lines{"show frmVarProfile"});
    const auto& last = form().rows[4].place;
    EXPECT_EQ(last.varName.top, 70 + 4 * 380);
    EXPECT_EQ(last.textType.top, 30 + 4 * 385);
    EXPECT_EQ(last.getPath.top, 30 + 4 * 385);
    EXPECT_EQ(last.listType.top, 30 + 4 * 380);
    EXPECT_EQ(last.graph1.top, 4 * 382);
    EXPECT_EQ(form().cmdOK.top, 4 * 382 + 380);
}

TEST_F(LoadPrompt, OkStoresEveryRow) {
    load(PromptKind::profile);
    auto& rows = form().rows;
    rows[0].text = "a=b";
    rows[2].select("1");
    confirmPrompt(form());
    EXPECT_EQ(values(), (Lines{"title=a=b", "color=green", "speed=-f", "input=", "log=old"}));
    EXPECT_EQ(given, std::vector<Lines>{values()});
}

TEST_F(LoadPrompt, APromptKeepsItsOwnDeclarations) {
    load(PromptKind::profile);
    const auto first = desktop_.prompt;
    write("y.bqp", {"#Brasquelin Profile Yes", "[var]", "other", ".Type=Text", ".Info=", "[/var]"});
    loadProfile(folder() + "/y.bqp", {});
    first->mayConfirm = [] { return false; };
    EXPECT_FALSE(confirmPrompt(*first));
    EXPECT_EQ(variableTables.profileVariables[1].count(), 1U);
    first->mayConfirm = {};
    EXPECT_TRUE(confirmPrompt(*first));
    EXPECT_EQ(variableTables.profileVariables[1].count(), 5U);
    EXPECT_EQ(given, std::vector<Lines>{values()});
}

TEST_F(LoadPrompt, PresetsConfirmUnseenAlsoWhenTheyCoverOnlySomeRows) {
    load(PromptKind::profile, {"T", "", "2", "/in", "C:\\x", "beyond", "the last row"});
    EXPECT_EQ(values(), (Lines{"title=T", "color=", "speed=-s", "input=/in", "log=C:\\\\x"}));
    load(PromptKind::profile, {"only"});
    EXPECT_EQ(values(), (Lines{"title=only", "color=green", "speed=", "input=", "log=old"}));
    EXPECT_EQ(given.size(), 2U);
    load(PromptKind::function, {"T", "1", "1", "/in", "C:\\x"});
    EXPECT_EQ(given.back(), (Lines{"title=T", "color=red", "speed=-f", "input=/in", "log=old"}));
}

TEST_F(LoadPrompt, BadNumbersOfChoicesAreErrors) {
    EXPECT_EQ(errorOf([&] { load(PromptKind::profile, {"T", "red"}); }), ErrorNumber::typeMismatch);
    EXPECT_EQ(errorOf([&] { load(PromptKind::profile, {"T", "3"}); }), ErrorNumber::subscriptOutOfRange);
    EXPECT_TRUE(given.empty());
}

TEST_F(LoadPrompt, PopAsksOnceAndRemembers) {
    answerText("typed");
    load(PromptKind::profile, {"#pop:Key"});
    EXPECT_EQ(desktop_.questions[0],
              "Brasquelin: title=\r\n\r\nVariable 'title' of the profile '_My_tool'\r\nthe title [untitled]");
    load(PromptKind::profile, {"#POP:Key"});
    EXPECT_EQ(values()[0], "title=typed");
    EXPECT_EQ(read("pop.tmp"), "Key=typed\r\n");
    answerText("other");
    load(PromptKind::profile, {"#pop:key", "#pop:list"});
    EXPECT_EQ(values()[0], "title=other");
    EXPECT_EQ(values()[1], "color=green");
    EXPECT_EQ(read("pop.tmp"), "key=other\r\nKey=typed\r\n");
    EXPECT_EQ(exitStatusOf([&] { load(PromptKind::profile, {"#pop#"}); }), 0);  // cancelled
}

TEST_F(LoadPrompt, PopOpensTheFileDialogOfAPath) {
    write("in.txt", {"x"});
    answerFile(folder() + "/in.txt");
    load(PromptKind::profile, {"T", "0", "0", "#pop:in"});
    EXPECT_EQ(values()[3], "input=" + folder() + "/in.txt");
    EXPECT_EQ(read("pop.tmp"), "in=" + folder() + "/in.txt\r\n");
    answerFile("");
    load(PromptKind::profile, {"T", "0", "0", "0", "#pop:log"});
    EXPECT_EQ(values()[4], "log=old");
    EXPECT_EQ(read("pop.tmp"), "in=" + folder() + "/in.txt\r\n");
}

TEST_F(LoadPrompt, AskLeavesTheRowToTheUserAndOnlyRowsThatTookAValueLoseTheirBackdrop) {
    const auto visible = [this] {
        std::string rows;
        for (const auto& row : form().rows) rows += row.backdropVisible ? 'x' : '-';
        return rows;
    };
    answerFile("");
    load(PromptKind::profile, {"T", "#pop#", "#Ask#", "#pop:in", "C:\\x"});
    EXPECT_EQ(visible(), "-xxx-");
    EXPECT_EQ(windowCalls(), Lines{"show frmVarProfile modal"});
    EXPECT_TRUE(given.empty());
    EXPECT_TRUE(form().rows[2].askUser);
    EXPECT_EQ(form().rows[1].selected, 2);
    load(PromptKind::function, {"", "0", "#ask#", "/in", "C:\\x"});
    EXPECT_EQ(visible(), "--x-x");
}

TEST_F(LoadPrompt, AnAnswerThatCannotBeRememberedIsUsedAllTheSame) {
    std::filesystem::create_directory(folder() + "/pop.tmp");
    answerText("typed");
    load(PromptKind::profile, {"#pop:Key"});
    EXPECT_EQ(values()[0], "title=typed");
    EXPECT_EQ(messages(), Lines{"Brasquelin Error: Error 75 : Path/File access error\r\nWhile writting '" +
                                joinPath(programDirectory(), "pop.tmp") + "'"});
}

TEST_F(LoadPrompt, BrowsingStartsAtTheValueOfTheRow) {
    load(PromptKind::profile);
    auto& rows = form().rows;
    rows[3].text = R"(C:\\a)";
    browse(rows[3]);
    for (const char* value : {R"(C:\\a\\b)", R"(C:\a\\b)", R"(\\\\srv\\s)", ""}) {
        rows[4].text = value;
        browse(rows[4], "note");
    }
    Lines starts;
    for (const auto& dialog : desktop_.dialogs) starts.push_back(dialog.startName);
    EXPECT_EQ(starts, (Lines{R"(C:\\a)", R"(C:\a\b)", R"(C:\a\\b)", R"(\\srv\s)", ""}));
    EXPECT_EQ(desktop_.dialogs.back().note, "note");
}

TEST_F(LoadPrompt, FilesThatCannotBeOpenedEndTheProgram) {
    const std::string none = folder() + "/none.bqp";
    EXPECT_EQ(exitStatusOf([&] { loadProfile(none, {}); }), 1);
    write("short.bqp", {"#Brasquelin Profile 1"});
    write("long.bqs", {"#Brasquelin Library  "});
    EXPECT_EQ(exitStatusOf([&] { loadProfile(folder() + "/short.bqp", {}); }), 1);
    EXPECT_EQ(exitStatusOf([&] { loadFunction(folder() + "/long.bqs", {}); }), 1);
    EXPECT_EQ(messages(), (Lines{"Brasquelin: '" + none + "'\r\nError: unknown file",
                                 "Brasquelin Error: Error while loading '" + folder() + "/short.bqp' line 1",
                                 "Brasquelin Error: Error while loading '" + folder() + "/long.bqs' line 1"}));
}

TEST_F(LoadPrompt, WithoutVariablesAProfileRunsAtOnceAndALibraryIsShown) {
    write("none.bqp", {"#Brasquelin Profile None here"});
    PromptOptions options;
    options.confirmed = [this](const Lines& values) { given.push_back(values); };
    options.runAtOnce = [this] { ++runAtOnce; };
    loadProfile(folder() + "/none.bqp", options);
    EXPECT_EQ(runAtOnce, 1);
    loadFunction(folder() + "/none.bqp", options);
    EXPECT_EQ(windowCalls(), Lines{"show frmVarFunction modal"});
    options.replaying = true;
    loadFunction(folder() + "/none.bqp", options);
    EXPECT_EQ(given.size(), 1U);
}

}  // namespace
}  // namespace brasquelin
