#include "app/programWindows.h"
#include "wx/windowTest.h"

namespace brasquelin {
namespace {

using DesktopWindows = WindowTest;

TEST_F(DesktopWindows, SavingAsksForTheNameWithItsExtension) {
    const std::string existing = writeFile("settings.bqp", "kept\n");
    const std::string dotted = inDirectory("release-1.0");
    const FileDialogRequest request{FileDialogMode::save, "Save", "Profile Files|*.bqp", ""};
    windows.fileAnswers = {inDirectory("settings"), dotted};
    EXPECT_EQ(dotted + ".bqp", windows.askFile(request));
    EXPECT_EQ(Lines{"Brasquelin: '" + existing + "' exists already. Replace it?"}, modals.messages);
    EXPECT_EQ(existing, windows.fileRequests.back().startName);
    modals.yesNo = {true};
    windows.fileAnswers = {existing};
    EXPECT_EQ(existing, windows.askFile(request));
    EXPECT_EQ(2U, modals.messages.size());
}

TEST_F(DesktopWindows, TheWaitingWindowOfARunCannotBeClosed) {
    bool hasRun = false;
    auto* wait = new FrmWait([&] { hasRun = true; });
    wait->Show();
    wait->Close();
    ASSERT_EQ(wait, loadedWindow("frmWait"));
    EXPECT_TRUE(becomesTrue([&] { return hasRun; }));
    EXPECT_EQ(nullptr, loadedWindow("frmWait"));
}

TEST_F(DesktopWindows, ClosingTheWaitingWindowOfAListCancelsIt) {
    int cancelled = 0;
    const auto progress = std::make_shared<ListProgress>(ListProgress{1, 3, false, [&] { ++cancelled; }});
    for (const bool byButton : {false, true}) {
        windows.showListProgress(progress);
        wxTopLevelWindow& wait = *loadedWindow("frmWait");
        byButton ? click(wait, "cmdCancel") : static_cast<void>(wait.Close());
        EXPECT_EQ(nullptr, loadedWindow("frmWait"));
    }
    EXPECT_EQ(2, cancelled);
    windows.showListProgress(progress);
    windows.closeWaitWindow();
    EXPECT_EQ(2, cancelled);
}

}  // namespace
}  // namespace brasquelin
