#include <wx/button.h>
#include <wx/combobox.h>
#include <wx/scrolwin.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "app/jobList.h"
#include "app/openFile.h"
#include "platform/paths.h"
#include "platform/wx/wxText.h"
#include "text/runTimeError.h"
#include "text/text.h"
#include "vars/loadPrompt.h"
#include "windows/windowTest.h"

namespace brasquelin {
namespace {

const std::string allKinds =
    "name\n.Type=Text\n.Info=What to call it\n.Default=\n"
    "file\n.Type=PathOpen(Text files|*.txt)\n.Info=Input\n.Default=old.txt\n"
    "format\n.Type=List(gzip||bzip2)\n.Info=Format\n.Default=1\n"
    "size\n.Type=Comb(Small[s]||Large[l])\n.Info=Size\n.Default=1\n"
    "log\n.Type=DblSSave(Log files|*.log)\n.Info=Log\n.Default=\n";
const std::string allValues = "$name$/$file$/$format$/$size$/$log$";

class Prompt : public WindowTest {
  protected:
    std::string writeAllKinds() { return writeProfile("profiles/all.bqp", "All kinds", allKinds, allValues); }
};

TEST_F(Prompt, ShowsARowForEachVariableWithTheControlOfItsKind) {
    start();
    next([](wxDialog& prompt) {
        EXPECT_EQ("All_kinds", prompt.GetTitle());
        EXPECT_EQ("name=", control<wxStaticText>(prompt, "varName").GetLabelText());
        EXPECT_EQ("What to call it", control<wxStaticText>(prompt, "varName").GetToolTipText());
        EXPECT_EQ("old.txt", control<wxTextCtrl>(prompt, "pathType(1)").GetValue());
        EXPECT_EQ("gzip", control<wxComboBox>(prompt, "listType(2)").GetStringSelection());
        EXPECT_EQ("Small", control<wxComboBox>(prompt, "listType(3)").GetStringSelection());
        EXPECT_EQ(nullptr, findControl(prompt, "pathType"));
        EXPECT_EQ(nullptr, findControl(prompt, "getPath(2)"));
        EXPECT_EQ(prompt.GetDefaultItem(), findControl(prompt, "cmdOK"));
        EXPECT_EQ(wxWindow::FindFocus(), findControl(prompt, "textType")) << "the first row without a value";
        prompt.Close();
    });
    openPicked(writeAllKinds());
}

TEST_F(Prompt, ControlsAreTallEnoughAndDoNotOverlap) {
    start();
    next([](wxDialog& prompt) {
        int below = 0;
        for (const char* name : {"textType", "pathType(1)", "listType(2)", "listType(3)", "pathType(4)"}) {
            const wxWindow& value = *findControl(prompt, name);
            EXPECT_GE(value.GetSize().y, value.GetBestSize().y) << name;
            EXPECT_GE(value.GetPosition().y, below) << name;
            below = value.GetRect().GetBottom();
        }
        EXPECT_LT(findControl(prompt, "varName")->GetRect().GetRight(),
                  findControl(prompt, "textType")->GetPosition().x);
        EXPECT_LT(findControl(prompt, "pathType(1)")->GetRect().GetRight(),
                  findControl(prompt, "getPath(1)")->GetPosition().x);
        EXPECT_LT(below, findControl(prompt, "cmdOK")->GetPosition().y);
        const int width = findControl(prompt, "textType")->GetSize().x;
        prompt.SetClientSize(prompt.GetClientSize() + wxSize(100, 0));
        pump();
        EXPECT_EQ(width + 100, findControl(prompt, "textType")->GetSize().x);
        prompt.Close();
    });
    openPicked(writeAllKinds());
}

TEST_F(Prompt, OkRunsTheProfileWithWhatWasEntered) {
    start();
    const std::string chosen = writeFile("chosen.txt", "");
    windows.fileAnswers = {chosen, inDirectory("new.log")};
    next([](wxDialog& prompt) {
        type(prompt, "textType", "höhe");
        click(prompt, "getPath(1)");
        choose(prompt, "listType(2)", 2);
        choose(prompt, "listType(3)", 2);
        click(prompt, "getPath(4)");
        click(prompt, "cmdOK");
    });
    openPicked(writeAllKinds());
    ASSERT_EQ(1U, jobList.size());
    EXPECT_EQ(
        "echo höhe/" + shortPath(chosen) + "/bzip2/l/" + replaceAll(joinPath(exeDirectory(), "new.log"), "\\", "\\\\"),
        jobList.line(0));
    ASSERT_EQ(2U, windows.fileRequests.size());
    EXPECT_EQ("Text files|*.txt", windows.fileRequests[0].filter);
    EXPECT_EQ(FileDialogMode::save, windows.fileRequests[1].mode);
    EXPECT_EQ((std::vector<std::string>{"frmVarProfile", "frmWait"}), modals.shown);
}

TEST_F(Prompt, CancelEscapeAndACancelledFileDialogChangeNothing) {
    start();
    next([](wxDialog& prompt) {
        click(prompt, "getPath(1)");
        EXPECT_EQ("old.txt", control<wxTextCtrl>(prompt, "pathType(1)").GetValue());
        click(prompt, "cmdCancel");
    });
    openPicked(writeAllKinds());
    next([](wxDialog& prompt) { pressKey(prompt, WXK_ESCAPE); });
    openPicked(writeAllKinds());
    EXPECT_TRUE(jobList.empty());
    EXPECT_EQ((std::vector<std::string>{"frmVarProfile", "frmVarProfile"}), modals.shown);
}

TEST_F(Prompt, EnterInABoxIsOk) {
    start();
    next([](wxDialog& prompt) { pressKey(*findControl(prompt, "textType"), WXK_RETURN); });
    openPicked(writeAllKinds());
    EXPECT_EQ(1U, jobList.size());
}

TEST_F(Prompt, AskedRowIsBoldAndRedAndHasTheFocus) {
    wxFrame& frame = start(writeAllKinds() + " 001=x 002=#ask#");
    EXPECT_TRUE(frame.IsShown());
    wxDialog& prompt = dynamic_cast<wxDialog&>(*loadedWindow("frmVarProfile"));
    EXPECT_FALSE(prompt.IsModal());
    auto& asked = control<wxStaticText>(prompt, "varName(1)");
    EXPECT_EQ(wxFONTWEIGHT_BOLD, asked.GetFont().GetWeight());
    EXPECT_GT(asked.GetForegroundColour().Red(), asked.GetForegroundColour().Blue() + 100);
    EXPECT_EQ("x", control<wxTextCtrl>(prompt, "textType").GetValue());
    EXPECT_NE(wxFONTWEIGHT_BOLD, control<wxStaticText>(prompt, "varName").GetFont().GetWeight());
    const wxColour plain = control<wxStaticText>(prompt, "varName").GetBackgroundColour();
    EXPECT_NE(plain, control<wxStaticText>(prompt, "varName(2)").GetBackgroundColour())
        << "a preset hides the backdrop";
}

TEST_F(Prompt, ManyRowsScrollWithinTheScreen) {
    std::string variables;
    for (int i = 0; i < 256; ++i) variables += "v" + std::to_string(i) + "\n.Type=Text\n.Info=i\n.Default=d\n";
    start();
    next([](wxDialog& prompt) {
        EXPECT_LE(prompt.GetSize().y, wxGetClientDisplayRect().height);
        const wxWindow& last = *findControl(prompt, "textType(255)");
        wxWindow& area = *last.GetParent();
        findControl(prompt, "textType(255)")->SetFocus();
        pump();
        EXPECT_LE(last.GetRect().GetBottom(), area.GetClientSize().y);
        EXPECT_GE(last.GetPosition().y, 0);
        click(prompt, "cmdOK");
    });
    openPicked(writeProfile("profiles/many.bqp", "Many", variables, "$v255$"));
    EXPECT_EQ("echo d", jobList.line(0));
}

TEST_F(Prompt, AnErrorInTheProfileEndsTheProgramThroughEveryLoop) {
    wxFrame& frame = start();
    writeProfile("profiles/bad.bqp", "Bad", "v\n.Type=Text\n.Info=i\n.Default=d\n", "x\nNo such function");
    next([](wxDialog& picker) { click(picker, "cmdLoad"); });
    next([](wxDialog& prompt) { click(prompt, "cmdOK"); });
    EXPECT_EQ(1, endOf([&] { chooseFromMenu(frame, "Add Profile"); }));
    ASSERT_EQ(1U, modals.messages.size());
    EXPECT_NE(std::string::npos, modals.messages[0].find("unknown function"));
}

TEST_F(Prompt, LibraryIsAskedForAndAppended) {
    start();
    const std::string library =
        writeFile("libraries/copy.bqs",
                  "#Brasquelin Library Copy a file\n[var]\nfrom\n.Type=Text\n.Info=i\n.Default=\n"
                  "[/var]\n[command]\nType=shell\nCommand=cp $from$ .\n[/command]\n");
    next([](wxDialog& prompt) {
        EXPECT_EQ("frmVarFunction", prompt.GetName());
        type(prompt, "textType", "a.txt");
        click(prompt, "cmdOK");
    });
    openPicked(library);
    EXPECT_EQ(1U, jobList.size());
}

}  // namespace
}  // namespace brasquelin
