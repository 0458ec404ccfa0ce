#include <wx/frame.h>
#include <wx/gauge.h>
#include <wx/stattext.h>
#include <wx/toolbar.h>

#include "app/jobList.h"
#include "app/openFile.h"
#include "config/configFile.h"
#include "platform/codePages.h"
#include "platform/wx/placement.h"
#include "platform/wx/wxText.h"
#include "support/scratchDirectory.h"
#include "windows/windowTest.h"

namespace brasquelin {
namespace {

class Start : public WindowTest {
  protected:
    std::string writeOneVariable() {
        return writeProfile("profiles/one.bqp", "One", "v\n.Type=Text\n.Info=i\n.Default=d\n", "$v$");
    }
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

TEST_F(Start, AnUnreadableConfigurationIsToldAndTheWindowStays) {
    std::filesystem::remove(fromUtf8(inDirectory("Brasquelin.ini")));
    wxFrame& frame = start();
    EXPECT_TRUE(frame.IsShown());
    EXPECT_EQ(std::vector<std::string>{"Brasquelin Error: Error 53 : File not found\nWhile loading '" +
                                       inDirectory("Brasquelin.ini") + "'"},
              modals.messages);
}

TEST_F(Start, AFileNamedOnTheCommandLineIsAskedRunAndEnds) {
    start(writeOneVariable());
    ASSERT_NE(nullptr, loadedWindow("frmVarProfile")) << testing::PrintToString(modals.messages);
    wxWindow& prompt = *loadedWindow("frmVarProfile");
    EXPECT_TRUE(prompt.IsShown());
    type(prompt, "textType", "typed");
    EXPECT_EQ(0, endOf([&] { click(prompt, "cmdOK"); }));
    EXPECT_EQ("echo typed\r\n", readFile("brasquelin.bat"));
    EXPECT_EQ(1U, processes.commands.size());
}

TEST_F(Start, CancelOfThatPromptKeepsTheMainWindowItsCloseBoxEnds) {
    const std::string profile = writeOneVariable();
    wxFrame& frame = start(profile);
    EXPECT_EQ(std::nullopt, endOf([] { click(*loadedWindow("frmVarProfile"), "cmdCancel"); }));
    EXPECT_TRUE(frame.IsShown());
    EXPECT_EQ(nullptr, loadedWindow("frmVarProfile"));

    start(profile);
    EXPECT_EQ(0, endOf([] { loadedWindow("frmVarProfile")->Close(); }));
    EXPECT_TRUE(jobList.empty());
}

TEST_F(Start, PresetsRunTheFileUnseen) {
    EXPECT_EQ(0, endOf([&] { start(writeOneVariable() + " 001=preset"); }));
    EXPECT_EQ("echo preset\r\n", readFile("brasquelin.bat"));
    EXPECT_EQ(std::vector<std::string>{"frmWait"}, modals.shown);
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
        shellAndWait("sleep 100", WindowStyle::hidden);
    };
    EXPECT_EQ(0, endOf(close));
    EXPECT_LT(processes.polls, 1000);
}

}  // namespace
}  // namespace brasquelin
