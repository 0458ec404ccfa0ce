#include <wx/button.h>
#include <wx/scrolwin.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "app/jobList.h"
#include "app/openFile.h"
#include "platform/paths.h"
#include "platform/wx/dropDown.h"
#include "platform/wx/wxText.h"
#include "text/runTimeError.h"
#include "text/text.h"
#include "vars/loadPrompt.h"
#include "wx/windowTest.h"

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
        EXPECT_EQ("old.txt", control<wxTextCtrl>(prompt, "pathType(1)").GetValue());
        EXPECT_EQ("gzip", control<DropDown>(prompt, "listType(2)").GetStringSelection());
        EXPECT_EQ("Small", control<DropDown>(prompt, "listType(3)").GetStringSelection());
        EXPECT_EQ(nullptr, findControl(prompt, "pathType"));
        EXPECT_EQ(nullptr, findControl(prompt, "getPath(2)"));
        EXPECT_EQ(prompt.GetDefaultItem(), findControl(prompt, "cmdOK"));
        EXPECT_EQ(wxWindow::FindFocus(), findControl(prompt, "textType")) << "the first row without a value";
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
    EXPECT_EQ((Lines{"frmVarProfile", "frmWait"}), modals.shown);
}

TEST_F(Prompt, CancelAndEscapeChangeNothingAndEnterIsOk) {
    start();
    next([](wxDialog& prompt) {
        click(prompt, "getPath(1)");  // cancelled, too
        EXPECT_EQ("old.txt", control<wxTextCtrl>(prompt, "pathType(1)").GetValue());
        click(prompt, "cmdCancel");
    });
    openPicked(writeAllKinds());
    next([](wxDialog& prompt) { pressKey(prompt, WXK_ESCAPE); });
    openPicked(writeAllKinds());
    EXPECT_TRUE(jobList.empty());
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

TEST_F(Prompt, ManyRowsOfAllKindsStandOnTheirBackdropsAndScrollWithinTheScreen) {
    constexpr int rows = 255;
    const Lines types{"Text", "PathOpen(x|*.x)", "List(a||b)", "Comb(a[b]||c[d])", "DblSSave(|)"};
    const Lines controls{"textType", "pathType", "listType", "listType", "pathType"};
    std::string variables;
    for (int i = 0; i < rows; ++i) {
        variables +=
            "v" + std::to_string(i) + "\n.Type=" + types[static_cast<std::size_t>(i) % 5] + "\n.Info=i\n.Default=1\n";
    }
    start();
    next([&](wxDialog& prompt) {
        EXPECT_LE(prompt.GetSize().y, wxGetClientDisplayRect().height);
        const auto rectOf = [&](std::string name, int row) {
            if (row > 0) name += "(" + std::to_string(row) + ")";
            const wxRect rect = findControl(prompt, name)->GetRect();
            return std::pair(rect.GetTop(), rect.GetBottom());
        };
        const auto valueOf = [&](int row) { return rectOf(controls[static_cast<std::size_t>(row) % 5], row); };
        const auto beside = [&](int row) { return rectOf("varName", row).first - valueOf(row).first; };
        EXPECT_LT(findControl(prompt, "pathType(1)")->GetRect().GetRight(),
                  findControl(prompt, "getPath(1)")->GetPosition().x);
        for (int row = 0; row < rows; ++row) {
            EXPECT_GE(valueOf(row).second - valueOf(row).first + 1, findControl(prompt, "textType")->GetBestSize().y);
            EXPECT_NEAR(beside(row % 5), beside(row), 1) << row;
            EXPECT_GT(valueOf(row).first, row == 0 ? 0 : valueOf(row - 1).second) << row;
        }
        wxWindow& last = *findControl(prompt, "pathType(254)");
        last.SetFocus();
        pump();
        EXPECT_LE(last.GetRect().GetBottom(), last.GetParent()->GetClientSize().y);
        EXPECT_GE(last.GetPosition().y, 0);
        choose(prompt, "listType(253)", 2);
        click(prompt, "cmdOK");
    });
    openPicked(writeProfile("profiles/many.bqp", "Many", variables, "$v253$"));
    EXPECT_EQ("echo d", jobList.line(0));
}

TEST_F(Prompt, LongNamesAreShownWhole) {
    const std::string name = "aNameThatIsLongerThanItsColumnIsWide";
    const std::string endless(400, 'x');
    start();
    const auto fits = [](wxDialog& prompt) {
        auto& label = control<wxStaticText>(prompt, "varName");
        return label.GetTextExtent(label.GetLabelText()).x <= label.GetSize().x;
    };
    next([&](wxDialog& prompt) {
        EXPECT_TRUE(fits(prompt));
        EXPECT_EQ(name + " (PathOpen)\nInput", control<wxStaticText>(prompt, "varName").GetToolTipText());
        EXPECT_LT(findControl(prompt, "varName")->GetRect().GetRight(),
                  findControl(prompt, "pathType")->GetPosition().x);
        EXPECT_EQ(findControl(prompt, "cmdOK")->GetSize().x + findControl(prompt, "cmdCancel")->GetSize().x,
                  prompt.GetClientSize().x);
        prompt.Close();
    });
    openPicked(writeProfile("profiles/long.bqp", "Long", name + "\n.Type=PathOpen(a|*.a)\n.Info=Input\n", ""));
    next([&](wxDialog& prompt) {
        EXPECT_FALSE(fits(prompt));
        EXPECT_GT(findControl(prompt, "textType")->GetSize().x, prompt.GetClientSize().x / 4);
        prompt.Close();
    });
    openPicked(writeProfile("profiles/endless.bqp", "Endless", endless + "\n.Type=Text\n.Info=i\n", ""));
}

TEST_F(Prompt, ShowsSignsForWhatWouldNotBeSeenAndHandsItOnAsItIs) {
    start();
    const std::string path = writeProfile("profiles/signs.bqp", "S\u202Eigns",
                                          "na\u202Eme\n.Type=Text\n.Info=in\tfo\n.Default=a\t\u202Eb\n"
                                          "list\n.Type=List(c\u200Fd||e)\n.Info=x\n.Default=1\n",
                                          "$na\u202Eme$/$list$");
    next([](wxDialog& prompt) {
        EXPECT_EQ("S<U+202E>igns", prompt.GetTitle());
        EXPECT_EQ("na<U+202E>me=", control<wxStaticText>(prompt, "varName").GetLabelText());
        EXPECT_EQ(toWx("in\u2409fo"), findControl(prompt, "textType")->GetToolTipText());
        EXPECT_EQ(toWx("a\u2409<U+202E>b"), control<wxTextCtrl>(prompt, "textType").GetValue());
        EXPECT_EQ("c<U+200F>d", control<DropDown>(prompt, "listType(1)").GetStringSelection());
        click(prompt, "cmdOK");
    });
    openPicked(path);
    next([](wxDialog& prompt) {
        auto& box = control<wxTextCtrl>(prompt, "textType");
        box.SetInsertionPointEnd();
        box.WriteText("c");
        box.SetInsertionPoint(0);
        box.WriteText(toWx("x\u2066"));
        pump();
        EXPECT_EQ(toWx("x<U+2066>a\u2409<U+202E>bc"), box.GetValue());
        EXPECT_EQ(9, box.GetInsertionPoint());
        click(prompt, "cmdOK");
    });
    openPicked(path);
    EXPECT_EQ((Lines{"echo a\t\u202Eb/c\u200Fd", "echo x\u2066a\t\u202Ebc/c\u200Fd"}), jobList.lines());
    modals.textAnswers = {"y"};
    EXPECT_EQ("y", windows.askText("prompt", "title", "a\tb"));
}

TEST_F(Prompt, AValueLongerThanItsBoxIsMarkedAndItsTipShowsItWhole) {
    start();
    const std::string far = "x" + std::string(200, ' ') + "; rm y";
    next([&](wxDialog& prompt) {
        wxWindow& box = *findControl(prompt, "pathType(1)");
        EXPECT_EQ(nullptr, findControl(prompt, "goesOn(1)"));
        const int right = box.GetRect().GetRight();
        type(prompt, "pathType(1)", far);
        wxWindow& sign = control<wxStaticText>(prompt, "goesOn(1)");
        EXPECT_GE(sign.GetPosition().x, box.GetRect().GetRight());
        EXPECT_LT(sign.GetRect().GetRight(), findControl(prompt, "getPath(1)")->GetPosition().x);
        EXPECT_TRUE(box.GetToolTipText().EndsWith("; rm y")) << box.GetToolTipText();
        type(prompt, "pathType(1)", "short");
        EXPECT_EQ(nullptr, findControl(prompt, "goesOn(1)"));
        EXPECT_EQ(right, box.GetRect().GetRight());
        EXPECT_EQ("Input", box.GetToolTipText());
        prompt.Close();
    });
    openPicked(writeAllKinds());
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

}  // namespace
}  // namespace brasquelin
