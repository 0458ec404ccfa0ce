#include <wx/dnd.h>
#include <wx/frame.h>
#include <wx/gdicmn.h>
#include <wx/hyperlink.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/toolbar.h>

#include <stdexcept>

#include "app/jobList.h"
#include "app/jobListEditing.h"
#include "app/jobListView.h"
#include "app/mainCommands.h"
#include "app/openFile.h"
#include "platform/wx/popUpMenu.h"
#include "platform/wx/wxText.h"
#include "text/runTimeError.h"
#include "wx/windowTest.h"

namespace brasquelin {
namespace {

using MainWindow = WindowTest;

const Lines commandCaptions{
    "Add Library", "Add Profile",    "-",       "Clear JobList", "-", "Execute this line", "Execute Joblist",
    "-",           "Profile Editor", "Options", "About"};

TEST_F(MainWindow, OffersItsCommandsInTheMenuThePopUpMenuAndTheToolbar) {
    wxFrame& frame = start();
    EXPECT_EQ("Brasquelin", frame.GetTitle());
    auto inBar = captionsOf(*frame.GetMenuBar()->GetMenu(0));
    ASSERT_GE(inBar.size(), commandCaptions.size());
    inBar.resize(commandCaptions.size());
    EXPECT_EQ(commandCaptions, inBar);

    Lines popUp;
    setMenuPresenter([&](wxWindow&, wxMenu& menu, const wxPoint&) { popUp = captionsOf(menu); });
    rightClick(control<JobListView>(frame, "JobList"));
    EXPECT_EQ(commandCaptions,
              Lines(popUp.begin(), popUp.begin() + static_cast<std::ptrdiff_t>(commandCaptions.size())));
    const Lines edits = captionsOf(*frame.GetMenuBar()->GetMenu(1));
    Lines others{"-"};
    others.insert(others.end(), edits.begin(), edits.end());
    for (const char* caption : {"-", "Open a list of jobs ...", "Save the list as ..."}) others.emplace_back(caption);
    EXPECT_EQ(others, Lines(popUp.begin() + static_cast<std::ptrdiff_t>(commandCaptions.size()), popUp.end()));

    auto& toolbar = control<wxToolBar>(frame, "Toolbar1");
    Lines tools;
    for (std::size_t i = 0; i < toolbar.GetToolsCount(); ++i) {
        const auto* tool = toolbar.GetToolByPos(static_cast<int>(i));
        tools.push_back(tool->IsSeparator() ? "-" : fromWx(tool->GetLabel()));
    }
    EXPECT_EQ((Lines{"Add Library", "Add Profile", "-", "Clear Joblist", "-", "Execute Line", "Execute Joblist", "-",
                     "Profile Editor", "Options", "About"}),
              tools);
}

TEST_F(MainWindow, EachPlaceOpensTheSameWindows) {
    wxFrame& frame = start();
    const auto closeIt = [](wxDialog& window) { window.Close(); };
    for (const char* caption : {"Add Library", "Add Profile", "Options", "About"}) {
        next(closeIt);
        chooseFromMenu(frame, caption);
        next(closeIt);
        clickTool(frame, caption);
        next(closeIt);
        choosePopUps(caption);
        rightClick(control<JobListView>(frame, "JobList"));
    }
    Lines expected;
    for (const char* window : {"frmAddFunction", "frmAddProfile", "frmOption", "frmAbout"}) {
        expected.insert(expected.end(), 3, window);
    }
    EXPECT_EQ(expected, modals.shown);
}

TEST_F(MainWindow, FilesDroppedOnItOpenOneAfterTheOtherUnlessOneIsRun) {
    wxFrame& frame = start();
    auto* target = dynamic_cast<wxFileDropTarget*>(frame.GetDropTarget());
    ASSERT_NE(nullptr, target);
    const auto drop = [&](const Lines& paths) {
        wxArrayString names;
        for (const auto& path : paths) names.push_back(toWx(path));
        EXPECT_TRUE(target->OnDropFiles(0, 0, names));
        pump();
    };
    const std::string a = writeProfile("a.BQP", "First", "", "one");
    const std::string b = writeProfile("b.bqp", "Second", "x\n.Type=Text\n.Info=\n", "$x$");
    next([](wxDialog& prompt) {
        type(prompt, "textType", "two");
        click(prompt, "cmdOK");
    });
    drop({a, inDirectory("Brasquelin.ini"), b});
    EXPECT_EQ((Lines{"echo one", "echo two"}), jobList.lines());
    modals.shown.clear();
    runState.running = true;
    clickTool(frame, "Add Profile");
    EXPECT_TRUE(modals.shown.empty());
    drop({inDirectory("Brasquelin.ini")});
    EXPECT_TRUE(modals.messages.empty());
    drop({a, b});
    EXPECT_EQ(1U, modals.messages.size());
    runState.running = false;
}

TEST_F(MainWindow, TheToolbarKeyIsComparedExactly) {
    start();
    jobList.append("stays");
    runMainCommand("Clear Joblist", {});
    EXPECT_EQ(1U, jobList.size());
    runMainCommand("clear joblist", {});
    EXPECT_TRUE(jobList.empty());
}

TEST_F(MainWindow, ShowsTheJobListAndClearsIt) {
    wxFrame& frame = start();
    auto& list = control<JobListView>(frame, "JobList");
    jobList.append("short");
    jobList.append(std::string(400, 'w'));
    pump();
    EXPECT_EQ(2, list.GetItemCount());
    EXPECT_EQ("short", list.GetItemText(0));
    EXPECT_GE(list.GetColumnWidth(0), list.GetTextExtent(wxString('w', 400)).x);
    list.selectLine(1);
    clickTool(frame, "Clear Joblist");
    EXPECT_EQ(0, list.GetItemCount());
    EXPECT_EQ(list.GetClientSize().x, list.GetColumnWidth(0));
    EXPECT_FALSE(list.selectedLine());
}

TEST_F(MainWindow, ALineShowsWhatIsRunAndThatItGoesOn) {
    wxFrame& frame = start();
    auto& list = control<JobListView>(frame, "JobList");
    const std::string hidden = "echo \u202Egpj.x\u202C\ta\rb";
    const std::string far = "echo a" + std::string(900, ' ') + "; rm b";
    const std::string endless(1'000'000, 'x');
    for (const auto& line : {hidden, far, endless}) jobList.append(line);
    pump();
    const auto& whole = control<wxTextCtrl>(frame, "txtLine");
    wxKeyEvent down(wxEVT_KEY_DOWN);
    down.m_keyCode = WXK_DOWN;
    list.HandleWindowEvent(down);
    EXPECT_EQ(0U, list.selectedLine()) << "the key must not leave the list for the box below";
    EXPECT_EQ(toWx("echo <U+202E>gpj.x<U+202C>\u2409a\u240Db"), list.GetItemText(0));
    for (const long item : {1L, 2L}) {
        const wxString row = list.GetItemText(item);
        EXPECT_TRUE(row.EndsWith("...")) << row;
        EXPECT_LE(list.GetTextExtent(row).x, list.GetClientSize().x);
    }
    const auto wholeOf = [&](std::size_t item) {
        list.selectLine(item);
        pump();
        return fromWx(whole.GetValue());
    };
    EXPECT_EQ("echo <U+202E>gpj.x<U+202C>\u2409a\u240Db", wholeOf(0));
    EXPECT_EQ(far, wholeOf(1));
    EXPECT_TRUE(wholeOf(2).ends_with("x ... (1000000 characters in all; Ctrl+C in the list copies them)"));
    EXPECT_EQ((Lines{hidden, far, endless}), jobList.lines());
    list.selectLine(0);
    chooseFromMenu(frame, "Execute this line");
    EXPECT_EQ(Lines{hidden}, processes.commands);
    clickTool(frame, "Clear Joblist");
    EXPECT_EQ("", whole.GetValue());
}

TEST_F(MainWindow, JobsAreEditedByKeysAndMenusAlsoWhereSomeAreHidden) {
    using Rows = std::vector<std::size_t>;
    wxFrame& frame = start();
    auto& list = control<JobListView>(frame, "JobList");
    for (const char* line : {"copy a", "move b", "copy c"}) jobList.append(line);
    pump();
    const auto press = [&](int key, bool control = false, bool alt = false) {
        wxKeyEvent event(wxEVT_CHAR_HOOK);
        event.m_keyCode = key;
        event.m_controlDown = control;
        event.m_altDown = alt;
        list.HandleWindowEvent(event);
        pump();
    };
    list.selectLines({1, 2});
    press(WXK_UP, false, true);
    EXPECT_EQ((Lines{"move b", "copy c", "copy a"}), jobList.lines());
    EXPECT_EQ((Rows{0, 1}), list.selectedLines());
    press('Z', true);
    EXPECT_EQ((Rows{1, 2}), list.selectedLines());
    press('A', true);
    press('C', true);
    EXPECT_EQ("copy a\nmove b\ncopy c", windows.clipboardText());

    press('F', true);
    type(frame, "txtFind", "COPY");
    EXPECT_EQ("2 of 3", fromWx(findControl(frame, "lblFound")->GetLabel()));
    EXPECT_EQ((Rows{0, 2}), list.selectedJobs());
    list.SetFocus();
    press('A', true);
    choosePopUps("Delete");
    rightClick(list);
    EXPECT_EQ(Lines{"move b"}, jobList.lines()) << "what is hidden stays";
    chooseFromMenu(frame, "Undo");
    EXPECT_EQ((Rows{0, 2}), list.selectedJobs());
    EXPECT_EQ(2, list.GetItemCount());
    list.selectLine(1);
    modals.textAnswers = {"MOVE c"};
    press(WXK_F2);
    EXPECT_EQ((Lines{"copy a", "move b", "MOVE c"}), jobList.lines());
    EXPECT_EQ(3, list.GetItemCount()) << "what was changed is seen";
    EXPECT_EQ(2U, list.selectedJob());

    press('F', true);
    type(frame, "txtFind", "move");
    press(WXK_ESCAPE);
    EXPECT_EQ(3, list.GetItemCount());
    EXPECT_FALSE(findControl(frame, "findBar")->IsShown());
    clickTool(frame, "Clear Joblist");
    press('Z', true);
    EXPECT_EQ(3U, jobList.size());
}

TEST_F(MainWindow, TheStatusLineTellsHowManyJobsThereAreAndWhatIsRun) {
    wxFrame& frame = start();
    auto& list = control<JobListView>(frame, "JobList");
    const auto told = [&] {
        pump();
        Lines texts;
        for (const char* name : {"lblJobs", "lblSelected", "lblActivity"}) {
            texts.push_back(fromWx(control<wxStaticText>(frame, name).GetLabelText()));
        }
        return texts;
    };
    EXPECT_EQ((Lines{"No jobs", "", ""}), told());
    for (const char* line : {"a", "b", "ab"}) jobList.append(line);
    pump();
    list.selectLines({0, 1});
    EXPECT_EQ((Lines{"3 jobs", "2 selected", ""}), told());
    list.showOnly("b");
    runState.running = true;
    runState.runningFile = "x/some.bqp";
    EXPECT_EQ((Lines{"3 jobs, 2 shown", "1 selected", "'some.bqp' is being run ..."}), told());
    runState.reset();
}

TEST_F(MainWindow, ComesUpWhereItWasAsFarAsThatIsOnTheScreen) {
    const auto placeAfter = [&](const std::string& preference) {
        writeFile("brasquelin.window", preference + "CloseWhenWell=1\n");
        wxFrame& frame = start();
        const wxRect place = frame.GetRect();
        frame.SetSize(40, 50, 700, 400);
        EXPECT_TRUE(becomesTrue([&] { return frame.GetRect() == wxRect(40, 50, 700, 400); }));
        EXPECT_EQ(0, endOf([&] { frame.Close(); }));
        delete &frame;
        return place;
    };
    const wxRect usual = placeAfter("");
    EXPECT_EQ("CloseWhenWell=1\r\nMain=40 50 700 400\r\n", readFile("brasquelin.window"));
    EXPECT_EQ(wxRect(80, 90, 640, 480), placeAfter("Main=80 90 640 480\n"));
    EXPECT_EQ(usual, placeAfter("Main=no place\n"));
    const wxRect screen = wxGetClientDisplayRect();
    for (const char* off : {"9000 9000 640 480", "-5000 -10 640 480", "5 5 30000 30000"}) {
        const wxRect place = placeAfter(std::string("Main=") + off + "\n");
        EXPECT_TRUE(screen.Contains(place)) << off;
    }
}

TEST_F(MainWindow, AListThatWasWorkedOnIsOfferedAtTheNextStart) {
    const std::string profile = writeProfile("a.bqp", "First", "x\n.Type=Text\n.Info=\n", "$x$");
    const auto close = [&] {
        wxFrame& frame = start();
        EXPECT_EQ(nullptr, findControl(frame, "noticeLine")) << "nothing was kept";
        insertJobs(0, {"by hand", "again"}, "Paste");
        EXPECT_EQ(0, endOf([&] { frame.Close(); }));
        delete &frame;
    };
    close();
    wxFrame* frame = &start(profile);
    EXPECT_EQ(nullptr, findControl(*frame, "noticeLine")) << "a file is prompted for";
    delete loadedWindow("frmVarProfile");
    delete frame;
    frame = &start();
    click(*frame, "cmdRestoreJobs");
    pump();
    EXPECT_EQ((Lines{"by hand", "again"}), jobList.lines());
    EXPECT_FALSE(findControl(*frame, "noticeLine")->IsShown());
    EXPECT_EQ(std::nullopt, endOf([&] { clickTool(*frame, "Profile Editor"); }));
    EXPECT_TRUE(jobList.empty());
    windows.unloadWindow(ProgramWindow::createProfile);
    frame = &start();
    click(*frame, "cmdDiscardJobs");
    pump();
    EXPECT_EQ("", readFile("joblist.kept"));
    delete frame;
    close();
    EXPECT_TRUE(modals.messages.empty());
}

TEST_F(MainWindow, AnErrorInAnEventIsOnlyAMessage) {
    wxFrame& frame = start();
    jobList.append("echo a");
    processes.actions = {{"echo a", [] { throw std::length_error("of another kind"); }},
                         {"brasquelin.bat", [] { throw RunTimeError(ErrorNumber::fileNotFound, "xterm"); }}};
    pump();
    clickTool(frame, "Execute Line");  // nothing is selected
    choosePopUps("Execute this line");
    rightClick(control<JobListView>(frame, "JobList"));  // selects the line under the pointer
    EXPECT_EQ(Lines{"echo a"}, processes.commands);
    EXPECT_EQ(std::nullopt, endOf([&] { clickTool(frame, "Execute Joblist"); }));
    EXPECT_EQ((Lines{"Brasquelin Error: Error 5 : Invalid procedure call or argument",
                     "Brasquelin Error: of another kind", "Brasquelin Error: Error 53 : File not found\n'xterm'"}),
              modals.messages);
    EXPECT_EQ(1U, jobList.size());
    EXPECT_TRUE(frame.IsShown());
}

TEST_F(MainWindow, ClosingEndsTheProgramUnlessTheEditorIsVisible) {
    wxFrame* frame = &start();
    EXPECT_EQ(0, endOf([&] { frame->Close(); }));

    childProcessId = 17;
    EXPECT_EQ(std::nullopt, endOf([&] { clickTool(*frame, "Profile Editor"); }));
    EXPECT_TRUE(windows.isVisible(ProgramWindow::createProfile));
    EXPECT_EQ(nullptr, loadedWindow("frmMain"));
    EXPECT_EQ(std::vector<std::uint32_t>{17}, processes.terminated);

    windows.showWindow(ProgramWindow::main, false);
    EXPECT_TRUE(windows.isVisible(ProgramWindow::main));
}

TEST_F(MainWindow, AWindowThatIsOpenIsNotShownTwice) {
    wxFrame& frame = start();
    next([&](wxDialog& options) {
        windows.showWindow(ProgramWindow::options, true);
        EXPECT_EQ(&options, loadedWindow("frmOption"));
        EXPECT_TRUE(options.IsModal());
        options.Close();
    });
    windows.showWindow(ProgramWindow::options, true);
    EXPECT_EQ(Lines{"frmOption"}, modals.shown);
    windows.showWindow(ProgramWindow::main, false);
    EXPECT_EQ(&frame, loadedWindow("frmMain"));
}

TEST_F(MainWindow, AboutOpensItsLinks) {
    wxFrame& frame = start();
    next([](wxDialog& about) {
        for (const char* name : {"webPage", "mailAddress"}) {
            auto& link = control<wxHyperlinkCtrl>(about, name);
            wxHyperlinkEvent event(&link, link.GetId(), link.GetURL());
            link.HandleWindowEvent(event);
        }
        click(about, "cmdClose");
    });
    clickTool(frame, "About");
    ASSERT_EQ(2U, windows.links.size());
    EXPECT_EQ(0U, windows.links[0].find("https://"));
    EXPECT_EQ(0U, windows.links[1].find("mailto:"));
}

TEST_F(MainWindow, TheManualIsOpenedHereAndInTheEditor) {
    wxFrame& frame = start();
    chooseFromMenu(frame, "Manual");
    const std::string page = writeFile("manual.html", "<html></html>");
    EXPECT_EQ(Lines{"Brasquelin: The manual '" + page + "' is not there."}, modals.messages);
    EXPECT_EQ(Lines(), windows.links);
    chooseFromMenu(frame, "Manual");
    chooseFromMenu(frame, "Profile Editor");
    chooseFromMenu(*dynamic_cast<wxFrame*>(loadedWindow("frmCreateProfile")), "Manual");
    EXPECT_EQ((Lines{page, page}), windows.links);
}

}  // namespace
}  // namespace brasquelin
