#include "app/startUp.h"

#include <gtest/gtest.h>

#include "app/batchFile.h"
#include "app/jobList.h"
#include "app/openFile.h"
#include "app/pickers.h"
#include "config/configFile.h"
#include "config/optionsModel.h"
#include "platform/codePages.h"
#include "support/programTest.h"
#include "vars/loadPrompt.h"

namespace brasquelin {
namespace {

class StartUp : public ProgramTest {
  protected:
    void SetUp() override {
        write("Brasquelin.ini", {"[config]", "ProfilePath = \\p", "LibraryPath = \\p", "[/config]"});
        writeSayLibrary("p/say.bqs");
        const std::string library = "\n[library]\n:include $scriptpath$/say.bqs\n[/library]\n";
        writeText("p/ask.bqp", "#Brasquelin Profile Ask first" + library +
                                   "[var]\nname\n.Type=Text\n.Info=none\n[/var]\n[profile]\nSay\n.text=$name$");
        writeText("p/plain.bqp", "#Brasquelin Profile Plain one" + library + "[profile]\nSay\n.text=$index$");
        write("p/bad.bqp", {"#Brasquelin Profile Bad one", "[profile]", "Next"});
    }
    std::string at(const std::string& name) const { return folder() + "/p/" + name; }
    static std::string batch() { return batchFilePath(); }
    void writeList(const Lines& arguments) const {
        Lines lines;
        for (const auto& argument : arguments) lines.push_back("C:\\brasquelin.exe " + encodeOem(argument));
        write("list.txt", lines);
    }
    int replay() const {
        return exitStatusOf([this] { startUp("-f " + folder() + "/list.txt"); });
    }
};

TEST_F(StartUp, WithoutArgumentsTheProgramWaitsForItsUser) {
    std::string profilePath;
    EXPECT_TRUE(startUp("", [&] { profilePath = settings.startingUp ? settings.profilePath : "late"; }));
    EXPECT_EQ(profilePath, folder() + "\\p");
    EXPECT_FALSE(settings.startingUp);
    EXPECT_FALSE(exists("brasquelin.bat"));
}

TEST_F(StartUp, ANamedProfileIsRunAndTheProgramEnds) {
    desktop_.windows = false;
    EXPECT_EQ(exitStatusOf([this] { startUp(at("ask.bqp") + " 001=one two"); }), 0);
    EXPECT_EQ(read("brasquelin.bat"), "echo one two\r\n");
    EXPECT_EQ(commands(), Lines{batch()});
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), folder() + "/p"));
    EXPECT_GT(clock_.now, 1000U);
}

TEST_F(StartUp, ANamedProfileIsAskedForAndRunThroughTheWaitingWindow) {
    EXPECT_TRUE(startUp(at("ASK.BQP")));
    EXPECT_EQ(windowCalls(), Lines{"show frmVarProfile"});
    desktop_.prompt->rows[0].text = "typed";
    EXPECT_EQ(exitStatusOf([&] { confirmPrompt(*desktop_.prompt); }), 0);
    EXPECT_EQ(windowCalls(), (Lines{"show frmVarProfile", "wait", "close wait"}));
    EXPECT_EQ(read("brasquelin.bat"), "echo typed\r\n");
}

TEST_F(StartUp, ANamedLibraryIsRunLikeAProfileAndAFailedRunLeavesNoBatchFile) {
    EXPECT_EQ(exitStatusOf([this] { startUp(at("say.bqs") + " 001=hello"); }), 0);
    EXPECT_EQ(read("brasquelin.bat"), "echo hello\r\n");
    remove("brasquelin.bat");
    EXPECT_TRUE(startUp(at("bad.bqp")));
    EXPECT_EQ(messages().size(), 1U);
    EXPECT_FALSE(exists("brasquelin.bat"));
}

TEST_F(StartUp, OtherExtensionsAreIgnoredAndMissingDirectoriesAreNot) {
    EXPECT_TRUE(startUp(at("x.txt")));
    EXPECT_TRUE(startUp("x.bqp001=a"));
    EXPECT_TRUE(messages().empty());
    EXPECT_FALSE(startUp(folder() + "/none/x.bqp"));
    EXPECT_EQ(messages(),
              Lines{"Brasquelin Error: Error 76 : Path not found\r\nWhile loading '" + folder() + "/none/x.bqp'"});
    EXPECT_EQ(exitStatusOf([this] { startUp(at("none.bqp")); }), 1);
}

TEST_F(StartUp, TheLauncherStandsBeforeTheBatchFile) {
    write("Brasquelin.ini", {"[config]", "shellexec = $exepath$/run it", "[/config]"});
    EXPECT_EQ(exitStatusOf([this] { startUp(at("plain.bqp")); }), 0);
    EXPECT_EQ(commands(), Lines{folder() + "/run it " + batch()});
    startUp("");
    jobList.append("echo 1");
    EXPECT_EQ(exitStatusOf([] { executeJobList(); }), 0);
    EXPECT_EQ(commands()[1], folder() + "/run it Brasquelin " + batch());
}

TEST_F(StartUp, AListIsReplayedAsOneBatch) {
    writeList({at("ask.bqp") + " 001=first", "", at("plain.bqp"), at("say.bqs") + " 001=caf\xC3\xA9"});
    EXPECT_EQ(replay(), 0);
    EXPECT_EQ(windowCalls(), (Lines{"show progress", "close wait"}));
    EXPECT_EQ(commands(), Lines{batch()});
    EXPECT_EQ(jobList.lines(), (Lines{"echo first", "echo 2", "echo café"}));
}

TEST_F(StartUp, AnEmptyListGivesAnEmptyBatchFile) {
    writeBytes("list.txt", "");
    EXPECT_EQ(replay(), 0);
    EXPECT_TRUE(exists("brasquelin.bat"));
    EXPECT_EQ(read("brasquelin.bat"), "");
    EXPECT_EQ(commands().size(), 1U);
}

TEST_F(StartUp, TheEndOfAListTellsWhichLinesWereSkippedAndWhy) {
    writeList({at("bad.bqp"), at("ask.bqp"), "", at("notes.txt"), at("plain.bqp")});
    testing::internal::CaptureStderr();
    EXPECT_EQ(replay(), 1);
    const std::string list = folder() + "/list.txt";
    const Lines reasons{
        "line 1: Error 5 : Invalid procedure call or argument While loading '" + at("bad.bqp") + "' at line 3",
        "line 2: It was cancelled."};  // what is no profile and no library is ignored
    std::string window = "Brasquelin: Skipped in '" + list + "':";
    std::string standardError;
    for (const auto& reason : reasons) {
        window.append("\r\n").append(reason);
        standardError.append("Brasquelin: '").append(list).append("' ").append(reason).append("\n");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), standardError);
    EXPECT_EQ(messages().back(), window);
    EXPECT_EQ(jobList.lines(), Lines{"echo 2"});
    EXPECT_EQ(commands().size(), 1U);
    desktop_.windows = false;
    EXPECT_EQ(replay(), 1) << "nor can the prompt be shown without a display";
    EXPECT_EQ(commands().size(), 2U);
}

TEST_F(StartUp, AListThatIsCancelledExecutesNothing) {
    write("p/slow.exe", {"program"});
    write("p/slow.bqp", {"#Brasquelin Profile Slow", "[library]", ":plugin $scriptpath$/slow.exe", "[/library]"});
    writeList({at("plain.bqp"), at("slow.bqp"), at("plain.bqp")});
    processes_.endsAfterPolls = 1000;
    processes_.onTerminate = [this] { processes_.endsAfterPolls = 0; };
    desktop_.onEvents = [this] {
        if (!desktop_.running.empty() && desktop_.progress != nullptr) desktop_.progress->cancel();
    };
    EXPECT_EQ(replay(), 1);
    EXPECT_EQ(desktop_.running, Lines{"'slow.exe' is running."});
    EXPECT_EQ(jobList.lines(), Lines{"echo 1"});
    EXPECT_EQ(commands().size(), 1U);
    EXPECT_FALSE(exists("brasquelin.bat"));
    EXPECT_TRUE(messages().empty());
}

TEST_F(StartUp, ABadPresetOrAMissingListStopsStartUp) {
    write("p/list.bqs", {"#Brasquelin Library  List", "[var]", "x", ".Type=List(a)", ".Info=none", "[/var]"});
    writeList({at("plain.bqp"), at("list.bqs") + " 001=9", at("plain.bqp")});
    EXPECT_EQ(replay(), -1);
    EXPECT_FALSE(startUp("-f " + folder() + "/none.txt"));
    remove("Brasquelin.ini");
    EXPECT_FALSE(startUp(at("plain.bqp")));
    EXPECT_EQ(messages(),
              (Lines{"Brasquelin Error: Error 9 : Subscript out of range\r\nWhile loading '" + at("list.bqs") + "'",
                     "Brasquelin Error: Error 53 : File not found\r\nWhile loading '" + folder() + "/none.txt'",
                     "Brasquelin Error: Error 53 : File not found\r\nWhile loading '" + configFilePath() + "'"}));
    EXPECT_FALSE(exists("brasquelin.bat"));
    EXPECT_FALSE(settings.startingUp);
}

TEST_F(StartUp, ABatchFileThatCannotBeWrittenIsNamed) {
    std::filesystem::create_directory(folder() + "/brasquelin.bat");
    writeList({at("plain.bqp")});
    EXPECT_EQ(replay(), -1);
    EXPECT_TRUE(startUp(at("plain.bqp")));
    const std::string text = "Brasquelin Error: Error 75 : Path/File access error\r\nWhile writting '" + batch() + "'";
    EXPECT_EQ(messages(), (Lines{text, text}));
}

TEST_F(StartUp, TheJobListIsExecutedOnlyWhenItHoldsSomething) {
    startUp("");
    executeJobList();
    EXPECT_EQ(messages(), Lines{"Error: Joblist empty !"});
    EXPECT_FALSE(exists("brasquelin.bat"));
    jobList.append("echo é");
    jobList.append("echo 2");
    executeLine(1);
    EXPECT_EQ(exitStatusOf([] { executeJobList(); }), 0);
    EXPECT_EQ(commands(), (Lines{"echo 2", batch()}));
    EXPECT_EQ(jobList.longestLine(), 0U);
    clearJobList();
    EXPECT_FALSE(jobList.longestLine().has_value());
}

TEST_F(StartUp, PickersOfferTitlesAndFiles) {
    startUp("");
    write("p/short.bqp", {"#Brasquelin"});
    writeBytes("p/empty.BQP", "");
    const PickerList profiles = listProfiles();
    EXPECT_EQ(profiles.titles, (Lines{"Ask first", "Bad one", "", "Plain one", ""}));
    ASSERT_EQ(profiles.paths.size(), 5U);
    EXPECT_EQ(listLibraries().titles, Lines{"Say"});
    openPicked(profiles.paths[3]);
    EXPECT_EQ(jobList.lines(), Lines{"echo 1"});
    for (const std::string& leftByTheEditor : {at("ask.bqp"), std::string()}) {
        settings.profilePath = leftByTheEditor;
        EXPECT_EQ(listProfiles().paths.size(), 5U);
        EXPECT_EQ(OptionsModel().path(OptionsModel::profile), folder() + "\\p");
        EXPECT_EQ(settings.profilePath, leftByTheEditor);
    }
}

}  // namespace
}  // namespace brasquelin
