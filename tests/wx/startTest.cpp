#include <wx/dialog.h>
#include <wx/frame.h>
#include <wx/gauge.h>
#include <wx/stattext.h>
#include <wx/timer.h>
#include <wx/toolbar.h>

#include "app/jobList.h"
#include "app/openFile.h"
#include "config/configFile.h"
#include "platform/codePages.h"
#include "platform/wx/placement.h"
#include "platform/wx/wxText.h"
#include "wx/windowTest.h"

namespace brasquelin {
namespace {

class Start : public WindowTest {
  protected:
    std::string writeOneVariable() {
        return writeProfile("profiles/one.bqp", "One", "v\n.Type=Text\n.Info=i\n.Default=d\n", "$v$");
    }

    /// Presses Cancel once the program tells what is running.
    void cancelWhatRuns(std::string& told) {
        timer_.Bind(wxEVT_TIMER, [&told](wxTimerEvent&) {
            auto* running = loadedWindow("frmRunning");
            if (!running || !running->IsShown()) return;
            told = fromWx(control<wxStaticText>(*running, "runningText").GetLabelText());
            click(*running, "cmdCancel");
        });
        timer_.Start(5);
    }

  private:
    wxTimer timer_;
};

TEST_F(Start, ShowsTheMainWindowWithItsPicturesAndMeasuresTheBorders) {
    borderSizes = {};
    wxFrame& frame = start();
    EXPECT_TRUE(frame.IsShown());
    EXPECT_LT(borderSizes.vertical, 9999);
    EXPECT_EQ(nullptr, loadedWindow("frmDetectBorder"));
    EXPECT_FALSE(settings.startingUp);
    const wxBitmap picture = frame.GetToolBar()->GetToolByPos(0)->GetNormalBitmap();
    EXPECT_GT(picture.GetWidth(), 16);
}

TEST_F(Start, AFileNamedOnTheCommandLineIsAskedFor) {
    const std::string profile = writeOneVariable();
    wxFrame& frame = start(profile);
    ASSERT_NE(nullptr, loadedWindow("frmVarProfile")) << testing::PrintToString(modals.messages);
    EXPECT_EQ(std::nullopt, endOf([] { click(*loadedWindow("frmVarProfile"), "cmdCancel"); }));
    EXPECT_TRUE(frame.IsShown());
    EXPECT_EQ(nullptr, loadedWindow("frmVarProfile"));
    start(profile);
    EXPECT_EQ(0, endOf([] { loadedWindow("frmVarProfile")->Close(); }));
    EXPECT_TRUE(jobList.empty());
    start(profile);
    type(*loadedWindow("frmVarProfile"), "textType", "typed");
    EXPECT_EQ(0, endOf([] { click(*loadedWindow("frmVarProfile"), "cmdOK"); }));
    EXPECT_EQ("echo typed\r\n", readFile("brasquelin.bat"));
    EXPECT_EQ(1U, processes.commands.size());
}

TEST_F(Start, AnotherFileTakesThePlaceOfThePrompt) {
    wxFrame& frame = start(writeOneVariable());
    writeProfile("profiles/two.bqp", "Two",
                 "first\n.Type=Text\n.Info=i\n.Default=x\nv\n.Type=Text\n.Info=i\n.Default=y\n", "$first$ $v$");
    next([](wxDialog& picker) {
        choose(picker, "profileName", 1);
        click(picker, "cmdLoad");
    });
    chooseFromMenu(frame, "Add Profile");
    pump();
    wxWindow& prompt = *loadedWindow("frmVarProfile");
    EXPECT_EQ("Two", dynamic_cast<wxDialog&>(prompt).GetTitle());
    EXPECT_TRUE(frame.IsShown());
    EXPECT_EQ(std::nullopt, endOf([&] { click(prompt, "cmdOK"); }));
    EXPECT_EQ("echo x y", jobList.line(0));
    EXPECT_EQ(nullptr, loadedWindow("frmVarProfile"));
}

TEST_F(Start, AFileWithoutVariablesLeavesThePromptAndWhileOneIsRunItsOkIsRefused) {
    start(writeOneVariable());
    openPicked(writeProfile("profiles/none.bqp", "None", "", "none"));
    pump();
    runState.running = true;
    EXPECT_EQ(std::nullopt, endOf([] { click(*loadedWindow("frmVarProfile"), "cmdOK"); }));
    EXPECT_EQ(Lines{"Brasquelin: Another file is still being run."}, modals.messages);
    runState.running = false;
    EXPECT_EQ(0, endOf([] { click(*loadedWindow("frmVarProfile"), "cmdOK"); }));
    EXPECT_EQ("echo none\r\necho d\r\n", readFile("brasquelin.bat"));
}

TEST_F(Start, ALongPluginIsToldAndMayBeEnded) {
    const std::string plugin = writeFile("plugins/slow.exe", "");
    const std::string profile =
        writeFile("slow.bqp", "#Brasquelin Profile Slow\n[library]\n:plugin $exepath$/plugins/slow.exe\n[/library]\n");
    processes.endsAfterPolls = 1'000'000;
    processes.onTerminate = [this] { processes.endsAfterPolls = 0; };
    std::string told;
    cancelWhatRuns(told);
    wxFrame& frame = start(profile);
    EXPECT_EQ("'slow.exe' is running.", told);
    EXPECT_EQ(1U, processes.terminated.size());
    EXPECT_TRUE(modals.messages.empty()) << "who ended it knows";
    EXPECT_EQ(nullptr, loadedWindow("frmRunning"));
    EXPECT_TRUE(frame.IsShown());
}

TEST_F(Start, AListIsReplayedAndEnds) {
    const std::string profile = writeOneVariable();
    const std::string line = "C:\\tools\\brasquelin.exe " + profile;
    const std::string list = writeFile("list.txt", encodeOem(line + " 001=a\n" + line + "\n"));
    next([](wxDialog& prompt) {
        pump();
        wxWindow& waiting = *loadedWindow("frmWait");
        EXPECT_TRUE(waiting.IsShown());
        EXPECT_EQ("File 2 of 2", control<wxStaticText>(waiting, "progressText").GetLabel());
        EXPECT_EQ(1, control<wxGauge>(waiting, "progress").GetValue());
        EXPECT_FALSE(loadedWindow("frmMain")->IsShown());
        type(prompt, "textType", "b");
        click(prompt, "cmdOK");
    });
    EXPECT_EQ(0, endOf([&] { start("-f " + list); })) << testing::PrintToString(modals.messages);
    EXPECT_EQ("echo a\r\necho b\r\n", readFile("brasquelin.bat"));
}

TEST_F(Start, ClosingTheMainWindowDuringAChildProcessEndsTheProgram) {
    wxFrame& frame = start();
    processes.endsAfterPolls = 1000;
    const auto close = [&] {
        frame.CallAfter([&frame] { frame.Close(); });
        shellAndWait("sleep 100", WindowStyle::hidden, "x");
    };
    EXPECT_EQ(0, endOf(close));
    EXPECT_LT(processes.polls, 1000);
}

}  // namespace
}  // namespace brasquelin
