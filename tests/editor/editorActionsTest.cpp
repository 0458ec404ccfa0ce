#include "editor/editorActions.h"

#include <gtest/gtest.h>

#include "config/configFile.h"
#include "editor/addCommand.h"
#include "editor/addVariable.h"
#include "editor/formActions.h"
#include "editor/groupActions.h"
#include "editor/pluginQuery.h"
#include "editor/recentProfiles.h"
#include "platform/childProcess.h"
#include "platform/paths.h"
#include "support/programTest.h"
#include "vars/variableTables.h"

namespace brasquelin {
namespace {

class EditorActions : public ProgramTest {
  protected:
    EditorActions() {
        write("profiles/a.bqp", {"#Brasquelin Profile A", "[profile]", "one", "[/profile]"});
        settings.profilePath = settings.profileDirectory = folder() + "/profiles";
        enterEditor();
    }

    /// What the value window asked, each with its default text.
    Lines prompts() const {
        Lines asked;
        for (const auto& question : desktop_.valueQuestions) {
            asked.push_back(question.prompt + " [" + question.defaultText + "]");
        }
        return asked;
    }
    std::string profile() const { return folder() + "/profiles/a.bqp"; }

    /// The document has these lines from the start.
    static void given(EditorList which, const Lines& lines) {
        editorState.edited.replace([&](ProfileDocument& changed) { changed.list(which) = lines; });
    }
    static void givenPlugin(const std::string& name) {
        editorState.edited.replace([&](ProfileDocument& changed) { changed.pluginNames.append(name); });
    }

    const ProfileDocument& document = editorState.document;
    std::deque<std::string>& inputs = desktop_.values;  // none cancels
};

TEST_F(EditorActions, TheCurrentFileTakesTheConfiguredDirectorysPlace) {
    EXPECT_EQ(settings.profilePath, "");
    EXPECT_FALSE(canSave());
    EXPECT_EQ(editorTitle(), "Profile Editor");
    saveProfile();
    saveProfileAs();
    EXPECT_EQ(desktop_.dialogs.back().startName, joinPath(folder() + "/profiles", "newprofile.bqp"));
    EXPECT_FALSE(canSave());

    answerFile(profile());
    openProfile([] {});
    EXPECT_EQ(desktop_.dialogs.back().startName, joinPath(folder() + "/profiles", ""));
    EXPECT_EQ(document.listCommand, Lines{"one"});
    EXPECT_EQ(editorTitle(), "a.bqp - Profile Editor");
    EXPECT_EQ(settings.profilePath, profile());

    enterEditor();
    saveProfileAs();
    EXPECT_EQ(desktop_.dialogs.back().startName, joinPath(folder() + "/profiles", "newprofile.bqp"));
}

TEST_F(EditorActions, SavesUnderANewNameAndThenThere) {
    answerFile(folder() + "/new.bqp");
    given(EditorList::commands, {"x"});
    saveProfileAs();
    EXPECT_EQ(desktop_.dialogs[0].title + "/" + desktop_.dialogs[0].filter, "Save profile as/Profile Files|*.bqp");
    given(EditorList::commands, {"y"});
    saveProfile();
    EXPECT_NE(read("new.bqp").find("\r\ny\r\n"), std::string::npos);
    startNewProfile();
    EXPECT_FALSE(canSave());
}

TEST_F(EditorActions, FailuresNameTheFileAndKeepTheDocument) {
    answerFile(profile());
    openProfile([] {});
    answerFile(folder() + "/none.bqp");
    openProfile([] {});
    answerFile(folder() + "/none/x.bqp");
    saveProfileAs();
    writeBytes("binary.bqp", std::string("#Brasquelin Profile x\n\0\1\2", 25));
    answerFile(folder() + "/binary.bqp");
    openProfile([] { FAIL(); });
    ASSERT_EQ(messages().size(), 3U);
    EXPECT_NE(messages()[2].find("binary.bqp' at line 2"), std::string::npos);
    EXPECT_EQ(Lines(messages().begin(), messages().begin() + 2),
              (Lines{"Brasquelin Error: Error 53 : File not found\r\nWhile loading '" + folder() + "/none.bqp'",
                     "Brasquelin Error: Error 76 : Path not found\r\nWhile writting '" + folder() + "/none/x.bqp'"}));
    EXPECT_EQ(document.listCommand, Lines{"one"});
    EXPECT_EQ(settings.profilePath, profile());
}

TEST_F(EditorActions, OpeningAsksThePluginsForTheirVariables) {
    for (const char* program : {"zip.exe", "silent.exe", "check.exe", "mute.exe"}) write(program, {"program"});
    onCommand("zip.exe", [&] {
        EXPECT_EQ(editorState.status, "Plugin 1 of 3: 'zip.exe' ...");
        write("zip.var", {"level = 9", "files = 3"});
    });
    const auto open = [&](const Lines& includes) {
        Lines lines{"#Brasquelin Profile P", "[library]"};
        lines.insert(lines.end(), includes.begin(), includes.end());
        write("p.bqp", lines);
        answerFile(folder() + "/p.bqp");
        openProfile([] {});
    };
    open({":PLUGIN $ExePath$/zip.exe [Param=-x \"a b\"]", ":plugin $scriptpath$/silent.exe",
          ":check $exepath$/check.exe", ":plugin $exepath$/mute.exe"});
    EXPECT_EQ(commands(), (Lines{"\"" + folder() + "/zip.exe\" -x \"a b\"", "\"" + folder() + "/silent.exe\" ",
                                 "\"" + folder() + "/mute.exe\" "}));
    ASSERT_EQ(document.pluginNames.count(), 3U);
    EXPECT_EQ(document.pluginNames.row(1), "silent");
    ASSERT_EQ(variableTables.pluginResults[0].count(), 2U);
    EXPECT_EQ(variableTables.pluginResults[0].row(1).name, "files");
    ASSERT_EQ(messages().size(), 1U);  // for both that have failed
    EXPECT_NE(messages()[0].find("silent.var"), std::string::npos);
    EXPECT_NE(messages()[0].find("mute.var"), std::string::npos);

    // One that the user ends leaves the rest out.
    desktop_.onEvents = cancelChild;
    open({":plugin $exepath$/silent.exe", ":plugin $exepath$/zip.exe"});
    EXPECT_EQ(commands().size(), 4U);
    EXPECT_EQ(editorState.status, "Stopped: 1 more plugins were not asked for their variables.");
    EXPECT_EQ(messages().size(), 1U);
}

TEST_F(EditorActions, RemembersRecentProfilesAndTakesDroppedOnes) {
    write("lib.bqs", {"#Brasquelin Library  L"});
    const auto nothing = [] {};
    takeDropped({folder() + "/lib.bqs", folder() + "/x.txt"}, nothing);
    EXPECT_EQ(document.listInclude, Lines{":Include $exepath$/lib.bqs"});
    answerFile(folder() + "/b.bqp");
    saveProfileAs();
    takeDropped({folder() + "/x.txt", profile(), folder() + "/none.bqp"}, nothing);
    EXPECT_EQ(document.listCommand, Lines{"one"});
    EXPECT_EQ(recentProfiles(), (Lines{profile(), folder() + "/b.bqp"}));
    openProfileAt(folder() + "/b.bqp", nothing);
    openProfileAt(folder() + "/none.bqp", nothing);  // told
    EXPECT_EQ(recentProfiles(), (Lines{folder() + "/b.bqp", profile()}));
    for (int i = 0; i < 12; ++i) noteRecentProfile(std::to_string(i));
    EXPECT_EQ(recentProfiles().size(), 9U);
    EXPECT_EQ(recentProfiles().front(), "11");
}

TEST_F(EditorActions, ANewPluginOffersItsVariablesOnDemand) {
    write("zip.exe", {"program"});
    onCommand("zip.exe", [&] { write("zip.var", {"level = 9"}); });
    editorState.activeList = EditorList::include;
    answerFile(folder() + "/zip.exe");
    addLines();
    EXPECT_TRUE(commands().empty());
    EXPECT_EQ(newPluginsNote(), "The variables of 'zip.exe' are not known yet.");
    queryNewPlugins();
    EXPECT_EQ(variableTables.pluginResults[0].count(), 1U);
    EXPECT_EQ(newPluginsNote(), "");
}

TEST_F(EditorActions, LinesThatSavingDropsAreTold) {
    write("p.bqp", {"#Brasquelin Profile P", "// by me", " ", "[library]", ":Include x", "", "[/library]", "[notes]",
                    "[profile]", "one", "[/profile]", "last"});
    answerFile(folder() + "/p.bqp");
    openProfile([] {});
    EXPECT_EQ(lossNote(), "3 lines of this file stand in no section of a profile. Saving will drop them.");
    const std::string bytes = read("p.bqp");
    saveProfile();
    EXPECT_EQ(read("p.bqp"), bytes);
    ASSERT_EQ(desktop_.questions.size(), 1U);
    EXPECT_NE(desktop_.questions[0].find("line 2: // by me\r\nline 8: [notes]\r\nline 12: last\r\n"),
              std::string::npos);
    desktop_.yes = true;
    saveProfile();
    saveProfile();
    EXPECT_EQ(desktop_.questions.size(), 2U);
    EXPECT_EQ(lossNote(), "");
    EXPECT_EQ(read("p.bqp").find("by me"), std::string::npos);
}

TEST_F(EditorActions, AFileThatIsNoProfileIsReplacedOnlyAfterAQuestion) {
    write("letter.txt", {"Dear reader,", "[profile]", "line"});
    const std::string bytes = read("letter.txt");
    answerFile(folder() + "/letter.txt");
    openProfile([] {});
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_NE(messages()[0].find("letter.txt' is no profile"), std::string::npos);
    saveProfile();
    EXPECT_EQ(desktop_.dialogs.back().title, "Save profile as");
    EXPECT_EQ(read("letter.txt"), bytes);
    answerFile(folder() + "/letter.bqp");
    saveProfile();
    saveProfile();
    EXPECT_EQ(desktop_.dialogs.size(), 3U);
    EXPECT_TRUE(exists("letter.bqp"));
    openProfile([] {});
    EXPECT_EQ(messages().size(), 1U);
}

TEST_F(EditorActions, AddsIncludesPluginsAndChecks) {
    editorState.activeList = EditorList::include;
    settings.libraryPath = "/libraries";
    answerFile(folder() + "/lib.bqs");
    answerFile(folder() + "/zip.EXE");
    answerFile("/bin/veto.exe");
    addLines();
    addLines();
    desktop_.yes = true;
    answerText("-v");
    addLines();
    addLines();  // cancelled
    EXPECT_EQ(document.listInclude,
              (Lines{":Include $exepath$/lib.bqs", ":Plugin $exepath$/zip.EXE", ":Check /bin/veto.exe [Param=-v]"}));
    EXPECT_EQ(document.pluginNames.count(), 2U);
    EXPECT_EQ(document.pluginNames.row(1), "veto");
    EXPECT_EQ(desktop_.dialogs[0].startName, joinPath("/libraries", ""));
    EXPECT_EQ(desktop_.dialogs[0].title, "Include a library , profile or plugin in project");
    EXPECT_EQ(desktop_.questions[0], "Parameters: Enter parameters for launching plugin (Empty=NoParameters) []");
}

TEST_F(EditorActions, TooManyPluginsOrGroupsAreTold) {
    editorState.activeList = EditorList::include;
    for (int i = 0; i < 256; ++i) givenPlugin("p");
    answerFile("/bin/veto.exe");
    addLines();
    EXPECT_TRUE(document.listInclude.empty());
    given(EditorList::commands, Lines(257, "call"));
    EXPECT_EQ(moveSelectedDown(EditorList::commands, {3}), LineNumbers{3});
    EXPECT_EQ(messages(), Lines(2, "Brasquelin Error: Error 9 : Subscript out of range"));
}

TEST_F(EditorActions, EveryActionWorksOnTheActiveList) {
    given(EditorList::include, {"i"});
    given(EditorList::variables, {"v"});
    addLines();
    clearActiveList();
    EXPECT_TRUE(windowCalls().empty());
    editorState.activeList = EditorList::variables;
    addLines();
    editorState.activeList = EditorList::commands;
    addLines();
    EXPECT_EQ(windowCalls(), (Lines{"show frmAddVar modal", "show frmAddCommand modal"}));
    editorState.activeList = EditorList::variables;
    answerText("w\r\nx\ry");
    editLine(0);
    EXPECT_EQ(document.listVar, Lines{"w x y"});
    answerText("w");
    editLine(0);
    answerText("");
    editLine(0);
    editLine(0);
    editLine({});
    EXPECT_EQ(document.listVar, Lines{"w"});
    EXPECT_EQ(desktop_.questions, (Lines{"Edit: Edit this value : [v]", "Edit: Edit this value : [w x y]",
                                         "Edit: Edit this value : [w]", "Edit: Edit this value : [w]"}));
    clearActiveList();
    EXPECT_TRUE(document.listVar.empty());
    EXPECT_EQ(document.listInclude, Lines{"i"});
}

TEST_F(EditorActions, RemovingSelectsTheLineThatFollows) {
    const auto remove = [](const LineNumbers& selected) { return removeSelected(EditorList::commands, selected); };
    given(EditorList::commands, {"a", ".x=1", "b", ".y=1", "c"});
    EXPECT_EQ(remove({1}), LineNumbers{1});
    EXPECT_EQ(remove({0, 1, 3}), LineNumbers{0}) << "of an attribute line alone the group stays";
    EXPECT_EQ(document.listCommand, (Lines{"b", ".y=1", "c"}));
    EXPECT_EQ(remove({0, 2}), LineNumbers());
    EXPECT_TRUE(document.listCommand.empty());
}

TEST_F(EditorActions, GroupsTravelByTheClipboard) {
    given(EditorList::commands, {"For", ".VarName=i", "call", ".a=1", "Next", "end"});
    EXPECT_EQ(cutSelected(EditorList::commands, {1, 2, 5}), LineNumbers{0});
    EXPECT_EQ(desktop_.clipboard, "For\n.VarName=i\ncall\n.a=1\nend");
    EXPECT_EQ(document.listCommand, Lines{"Next"});
    EXPECT_EQ(pasteBehind(EditorList::commands, {0}), (LineNumbers{1, 2, 3, 4, 5}));
    undoChange();
    undoChange();
    EXPECT_EQ(document.listCommand.size(), 6U);
    desktop_.clipboard = "[profile]\r\n\r\nwritten\r\n.by=hand\r\n[/Profile]\r\n";
    EXPECT_EQ(pasteBehind(EditorList::commands, {2}), (LineNumbers{4, 5})) << "behind the group";
    EXPECT_EQ(pasteBehind(EditorList::commands, {}), (LineNumbers{8, 9}));
    EXPECT_EQ(insertText(EditorList::commands, 1, "dropped"), LineNumbers{2}) << "not into a group";
    EXPECT_EQ(moveSelectedTo(EditorList::commands, {0, 10}, 5), (LineNumbers{3, 4, 5, 6}));
    EXPECT_EQ(document.listCommand, (Lines{"dropped", "call", ".a=1", "For", ".VarName=i", "written", ".by=hand",
                                           "written", ".by=hand", "Next", "end"}));
    desktop_.clipboard = ":Plugin $exepath$\\zip.exe [Param=-v]\n:Include x.bqs";
    pasteBehind(EditorList::include, {});
    pasteBehind(EditorList::include, {});
    EXPECT_EQ(document.listInclude.size(), 4U);
    EXPECT_EQ(document.pluginNames.count(), 1U) << "it can be called";
}

TEST_F(EditorActions, ArrowsEndAtTheEnds) {
    given(EditorList::commands, {"a", ".x=1", "b", ".y=1"});
    const auto ways = [](EditorList which, const LineNumbers& selected) {
        return std::string(canMoveUp(which, selected) ? "up " : "") + (canMoveDown(which, selected) ? "down" : "");
    };
    EXPECT_EQ(ways(EditorList::commands, {1}), "down");
    EXPECT_EQ(ways(EditorList::commands, {0, 3}), "up ") << "the last one counts";
    EXPECT_EQ(ways(EditorList::commands, {}), "down") << "the first group";
    EXPECT_EQ(ways(EditorList::include, {}), "");
    given(EditorList::include, {"i", ".j", "k"});
    EXPECT_EQ(ways(EditorList::include, {}), "");
    EXPECT_EQ(ways(EditorList::include, {1}), "up down");
    EXPECT_EQ(moveSelectedUp(EditorList::include, {1}), LineNumbers{0});
    EXPECT_EQ(document.listInclude, (Lines{".j", "i", "k"}));
    EXPECT_EQ(moveSelectedDown(EditorList::include, {}), LineNumbers());
}

TEST_F(EditorActions, ALoopIsAppendedUnlessAnAnswerIsEmpty) {
    given(EditorList::variables, {"count"});
    answerText("i");
    inputs = {"1", "$count$", "1"};
    askLoop();
    appendNext();
    EXPECT_EQ(editorState.lstVar, (Lines{"$index$", "$count$"}));
    EXPECT_EQ(prompts(), (Lines{"Enter the 'ForToNext' var start : []", "Enter the 'ForToNext' var end : []",
                                "Enter the 'ForToNext' var step : []"}));
    const Lines loop{"For", ".VarName=i", ".VarStart=1", ".VarEnd=$count$", ".VarStep=1", "Next"};
    EXPECT_EQ(document.listCommand, loop);
    askLoop();  // cancelled
    answerText("j");
    inputs = {"1", "", "1"};
    askLoop();
    EXPECT_EQ(document.listCommand, loop);
    answerText("j");
    inputs = {"1"};
    askLoop();
    EXPECT_EQ(document.listCommand.size(), 11U);
    EXPECT_EQ(document.listCommand.back(), ".VarStep=Canceled");
}

TEST_F(EditorActions, ACommandLineIsEditedUnlessCanceled) {
    given(EditorList::commands, {"a", "b"});
    editCommandLine(1);
    EXPECT_EQ(document.listCommand[1], "b");
    inputs = {"c", ""};
    editCommandLine(1);
    editCommandLine(0);
    editCommandLine({});
    EXPECT_EQ(document.listCommand, (Lines{"", "c"}));
    EXPECT_EQ(prompts(), (Lines{"Edit this value : [b]", "Edit this value : [b]", "Edit this value : [a]"}));
}

TEST_F(EditorActions, LeavingUnloadsTheDialogsAndShowsTheMainWindow) {
    desktop_.showWindow(ProgramWindow::addVar, false);
    leaveEditor();
    EXPECT_EQ(windowCalls(), (Lines{"show frmAddVar", "unload frmAddVar", "show frmMain"}));
}

TEST_F(EditorActions, ADeclarationCollectsItsChoices) {
    setGlobals({{"Out", "/out"}});
    AddVariable dialog;
    inputs = {"a", "$INDEX$", "$out$", "fast", "-O2"};
    dialog.askListChoice();
    for (int i = 0; i < 3; ++i) dialog.askCombEntry();
    EXPECT_EQ(messages().size(), 2U) << "a lone reference is told to be refused";
    dialog.askListChoice();  // cancelled
    EXPECT_EQ(dialog.fields.listChoices, (Lines{"a", "Canceled"}));
    EXPECT_EQ(dialog.fields.combEntries, (Lines{"$INDEX$", "$out$", "fast[-O2]"}));
    EXPECT_EQ(prompts(), (Lines{"Add to list []", "Add to comb: name []", "Add to comb: name []",
                                "Add to comb: name []", "Add to comb: com []", "Add to list []"}));
    dialog.fields.type = "Comb";
    dialog.add();
    EXPECT_EQ(document.listVar, (Lines{"newvar", ".Type=Comb($INDEX$||$out$||fast[-O2])", ".Info=none", ".Default="}));
}

TEST_F(EditorActions, ACallAsksForEachVariable) {
    write("build.bqp", {"#Brasquelin Profile build", "[var]", "src", ".Type=Text", ".Info=", "dst",
                        ".Type=List(red||green)", ".Info=where to", ".Default=2", "[/var]"});
    write("functions.ini", {"copy", "copy.ini"});
    settings.basicFunctionPath = folder() + "/functions.ini";
    given(EditorList::include, {":Include $exepath$/build.bqp"});
    givenPlugin("zip");
    const AddCommand dialog;
    ASSERT_EQ(dialog.entries().size(), 3U);
    inputs = {"from", "to", "", "-r out.zip"};
    for (std::size_t i = 0; i < 4; ++i) dialog.configure(i);
    dialog.configure(0);
    EXPECT_EQ(document.listCommand, (Lines{"build", ".src=from", ".dst=to", "BasicFunction.copy=",
                                           "Plugin.zip=-r out.zip", "build", ".src=Canceled", ".dst=Canceled"}));
    const Lines asked = prompts();
    EXPECT_EQ(Lines(asked.begin(), asked.begin() + 4),
              (Lines{"src []", "dst [list(2)]", "Basic Function parameter : []", "Plugin Command Line : []"}));
    const ValueQuestion last = desktop_.valueQuestions.back();
    EXPECT_EQ(last.references, dialog.references());
    EXPECT_EQ(last.about, "where to\nType: List\nlist(1): red\nlist(2): green");
    EXPECT_EQ(std::pair(last.number, last.count), std::pair(std::size_t{2}, std::size_t{2}));
}

TEST_F(EditorActions, AStoppedChainAddsNothing) {
    write("build.bqp", {"#Brasquelin Profile build", "[var]", "src", ".Type=Text", ".Info=", "[/var]"});
    given(EditorList::include, {":Include $exepath$/build.bqp"});
    desktop_.stopsChains = true;
    AddCommand().configure(0);
    answerText("i");
    inputs = {"1"};
    askLoop();
    EXPECT_TRUE(document.listCommand.empty());
    EXPECT_EQ(prompts().size(), 3U);  // of the loop's, the second one stops it
    EXPECT_EQ(desktop_.valueQuestions.back().number, 3U);
}

}  // namespace
}  // namespace brasquelin
