#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/toolbar.h>

#include "config/configFile.h"
#include "editor/editorListView.h"
#include "editor/editorState.h"
#include "editor/problemList.h"
#include "platform/files.h"
#include "platform/wx/dropDown.h"
#include "platform/wx/popUpMenu.h"
#include "platform/wx/wxText.h"
#include "wx/windowTest.h"

namespace brasquelin {
namespace {

const Lines sampleCommands{"For", ".VarName=i", ".VarStart=1", ".VarEnd=2", ".VarStep=1", "call", ".x=$i$", "Next"};

class Editor : public WindowTest {
  protected:
    wxFrame& open() {
        start();
        clickTool(dynamic_cast<wxFrame&>(*loadedWindow("frmMain")), "Profile Editor");
        pump();
        return dynamic_cast<wxFrame&>(*loadedWindow("frmCreateProfile"));
    }
    wxFrame& openWith(const Lines& commands) {
        std::string text = "#Brasquelin Profile Sample\n[var]\ncount\n.Type=Text\n.Info=none\n[/var]\n[profile]\n";
        for (const auto& line : commands) text += line + "\n";
        wxFrame& frame = open();
        windows.fileAnswers.push_back(writeFile("profiles/a.bqp", text));
        chooseFromMenu(frame, "Open");
        return frame;
    }

    static EditorListView& list(wxFrame& frame, const std::string& name) {
        return control<EditorListView>(frame, name);
    }

    static void choosePopUp(EditorListView& target, const std::string& caption) {
        choosePopUps(caption);
        rightClick(target);
    }
    static void activate(EditorListView& target) {
        wxListEvent event(wxEVT_LIST_ITEM_ACTIVATED, target.GetId());
        event.SetEventObject(&target);
        target.HandleWindowEvent(event);
    }
    static void pressKey(EditorListView& target, int key, bool control = false) {
        wxKeyEvent event(wxEVT_KEY_DOWN);
        event.m_keyCode = key;
        event.SetControlDown(control);
        event.SetEventObject(&target);
        target.HandleWindowEvent(event);
    }
    /// Answers the next value prompt.
    void nextInput(const std::string& text) {
        next([text](wxDialog& window) {
            type(window, "valueBox", text);
            click(window, "cmdOK");
        });
    }
    /// Waits until every modal window that was scripted has been shown.
    void waitForModals() {
        EXPECT_TRUE(becomesTrue([this] { return modals.steps.empty(); }));
        pump();
    }
};

Lines shownIn(const wxListView& list) {
    Lines lines;
    for (long i = 0; i < list.GetItemCount(); ++i) lines.push_back(fromWx(list.GetItemText(i)));
    return lines;
}

TEST_F(Editor, TakesTheMainWindowsPlaceAndGivesItBack) {
    wxFrame* frame = &open();
    EXPECT_EQ(nullptr, loadedWindow("frmMain"));
    EXPECT_EQ((Lines{"New", "Open", "-", "Save", "Save as ...", "-", "Exit", "-", "Open recent"}),
              captionsOf(*frame->GetMenuBar()->GetMenu(0)));
    EXPECT_EQ("newprofile", control<wxTextCtrl>(*frame, "profileName").GetValue());
    EXPECT_EQ(std::nullopt, endOf([&] { chooseFromMenu(*frame, "Exit"); }));
    ASSERT_TRUE(windows.isVisible(ProgramWindow::main));
    EXPECT_EQ(nullptr, loadedWindow("frmCreateProfile"));
    auto& main = dynamic_cast<wxFrame&>(*loadedWindow("frmMain"));
    EXPECT_TRUE(main.GetToolBar()->GetToolByPos(0)->GetNormalBitmap().ConvertToImage().HasAlpha());
    EXPECT_EQ(0, endOf([&] { main.Close(); }));
}

TEST_F(Editor, OpensSavesAndShowsTheFileInItsTitle) {
    wxFrame& frame = openWith(sampleCommands);
    EXPECT_EQ("a.bqp - Profile Editor", frame.GetTitle());
    EXPECT_EQ("Sample", control<wxTextCtrl>(frame, "profileName").GetValue());
    EXPECT_EQ(8, list(frame, "listCommand").GetItemCount());
    EXPECT_EQ(-1, list(frame, "listCommand").GetFirstSelected());
    type(frame, "profileName", "Renamed");
    chooseFromMenu(frame, "Save");
    EXPECT_EQ(0U, readFile("profiles/a.bqp").find("#Brasquelin Profile Renamed\r\n"));

    wxMenu& menu = *frame.GetMenuBar()->GetMenu(0);
    menu.UpdateUI();
    EXPECT_TRUE(menu.IsEnabled(wxID_SAVE));
    chooseFromMenu(frame, "New");
    menu.UpdateUI();
    EXPECT_FALSE(menu.IsEnabled(wxID_SAVE));
    EXPECT_EQ("Profile Editor", frame.GetTitle());
    EXPECT_EQ("newprofile", control<wxTextCtrl>(frame, "profileName").GetValue());
    EXPECT_EQ(0, list(frame, "listCommand").GetItemCount());
    windows.fileAnswers = {inDirectory("profiles/b")};
    chooseFromMenu(frame, "Save as ...");
    EXPECT_EQ("b.bqp - Profile Editor", frame.GetTitle());
}

TEST_F(Editor, UndoesEverythingAndMarksWhatIsNotSaved) {
    wxFrame& frame = openWith(sampleCommands);
    auto& commands = list(frame, "listCommand");
    type(frame, "profileName", "Other");
    EXPECT_EQ("*a.bqp - Profile Editor", frame.GetTitle());
    commands.selectLine(5);
    pressKey(commands, WXK_DELETE);
    choosePopUp(commands, "Clear");
    EXPECT_EQ(0, commands.GetItemCount());
    chooseFromMenu(frame, "Undo");
    chooseFromMenu(frame, "Undo");
    EXPECT_EQ(8, commands.GetItemCount());
    EXPECT_EQ(5U, commands.selectedLine());
    chooseFromMenu(frame, "Undo");
    EXPECT_EQ("Sample", control<wxTextCtrl>(frame, "profileName").GetValue());
    EXPECT_EQ("a.bqp - Profile Editor", frame.GetTitle());
    auto& menu = *frame.GetMenuBar()->GetMenu(1);
    menu.UpdateUI();
    EXPECT_FALSE(menu.IsEnabled(wxID_UNDO));
    EXPECT_TRUE(menu.IsEnabled(wxID_REDO));
    chooseFromMenu(frame, "Redo");
    EXPECT_EQ("Other", control<wxTextCtrl>(frame, "profileName").GetValue());
}

TEST_F(Editor, OffersWhatWasNotSavedWithoutAQuestion) {
    wxFrame* frame = &openWith(sampleCommands);
    const auto offers = [&frame] { return findControl(*frame, "notice")->IsShown(); };
    EXPECT_FALSE(offers());
    type(*frame, "profileName", "Other");
    chooseFromMenu(*frame, "New");
    EXPECT_TRUE(offers());
    click(*frame, "cmdRestore");
    pump();
    EXPECT_FALSE(offers());
    EXPECT_EQ("*a.bqp - Profile Editor", frame->GetTitle());
    EXPECT_EQ("Other", control<wxTextCtrl>(*frame, "profileName").GetValue());
    EXPECT_EQ(8, list(*frame, "listCommand").GetItemCount());

    chooseFromMenu(*frame, "Exit");
    pump();
    clickTool(dynamic_cast<wxFrame&>(*loadedWindow("frmMain")), "Profile Editor");
    pump();
    frame = dynamic_cast<wxFrame*>(loadedWindow("frmCreateProfile"));
    EXPECT_TRUE(offers());
    click(*frame, "cmdDiscard");
    pump();
    EXPECT_FALSE(offers());
    type(*frame, "profileName", "Typed");
    EXPECT_TRUE(becomesTrue([this] { return fileExists(inDirectory("profile.kept")); })) << "should the program crash";
}

TEST_F(Editor, ListsProblemsAndGoesToTheirGroup) {
    wxFrame& frame = openWith({"For", ".VarName=i", ".VarStart=1", ".VarEnd=$cuont$", ".VarStep=1", "Next"});
    auto& problems = control<ProblemList>(frame, "listProblems");
    const auto shows = [&problems](const Lines& expected) {
        return becomesTrue([&] {
            pump();
            return shownIn(problems) == expected;
        });
    };
    const std::string misspelt = "warning: nothing declares '$cuont$'; did you mean '$count$'?";
    EXPECT_TRUE(shows(
        {"warning: nothing uses 'count'", "error: Error 13 : Type mismatch '$cuont$' is no whole number.", misspelt}));
    problems.selectLine(2);
    pump();
    EXPECT_EQ(0, list(frame, "listCommand").GetFirstSelected());
    problems.selectLine(0);
    pump();
    EXPECT_EQ(0, list(frame, "listVar").GetFirstSelected());
    EXPECT_EQ("$cuont$", editorState.document.listCommand[3].substr(8));
    editorState.edited.change(
        [](ProfileDocument& document) { document.replaceLine(EditorList::commands, 3, ".VarEnd=$count$"); });
    chooseFromMenu(frame, "Save");
    EXPECT_TRUE(shows({}));
}

TEST_F(Editor, PreviewsTheLinesForTypedValues) {
    wxFrame& frame = openWith({"BasicFunction.say=text=$count$"});
    next([this](wxDialog& preview) {
        const auto& lines = control<LineList>(preview, "listPreview");
        EXPECT_EQ(Lines{"echo "}, shownIn(lines));
        next([](wxDialog& prompt) {
            type(prompt, "textType", "typed");
            click(prompt, "cmdOK");
        });
        click(preview, "cmdValues");
        EXPECT_EQ(Lines{"echo typed"}, shownIn(lines));
        EXPECT_FALSE(control<wxButton>(preview, "cmdPlugins").IsEnabled());
        click(preview, "cmdClose");
    });
    chooseFromMenu(frame, "Preview");
    EXPECT_EQ((Lines{"frmPreview", "frmVarProfile"}), modals.shown);
}

TEST_F(Editor, PastedLineBreaksBecomeBlanks) {
    wxFrame& frame = open();
    windows.copyToClipboard("one\r\ntwo\nthree\rfour");
    const auto paste = [](wxWindow& window, const char* box) {
        auto& text = control<wxTextCtrl>(window, box);
        text.Clear();
        text.Paste();
        pump();
        EXPECT_EQ("one two three four", text.GetValue());
        text.ChangeValue("");
        text.SetValue("five\nsix");  // dropped, or pasted from the selection
        EXPECT_EQ("five six", text.GetValue());
    };
    paste(frame, "profileName");
    EXPECT_EQ("five six", editorState.document.profileName);
    next([&](wxDialog& window) {
        for (const char* box : {"Text1", "Text2", "Text3", "Text4"}) paste(window, box);
        click(window, "Command3");
    });
    activate(list(frame, "listVar"));
    EXPECT_EQ((Lines{"five six", "    .Type=Text", "    .Info=five six", "    .Default=five six"}),
              shownIn(list(frame, "listVar")));
    next([&](wxDialog& window) {
        paste(window, "valueBox");
        click(window, "cmdCancel");
    });
    EXPECT_EQ(ValueEnd::cancelled, windows.askValue({"prompt", "", {}}).end);
    next([&](wxDialog& window) {
        EXPECT_EQ("2 of 3", control<wxStaticText>(window, "placeCaption").GetLabel());
        EXPECT_EQ("Type: List\n...", control<wxStaticText>(window, "aboutCaption").GetLabel());
        click(window, "cmdStop");
    });
    EXPECT_EQ(ValueEnd::stopped, windows.askValue({"prompt", "", {}, "Type: List\n...", 2, 3}).end);
}

TEST_F(Editor, OffersLoopsOnlyForTheCommandList) {
    wxFrame& frame = open();
    Lines captions;
    setMenuPresenter([&](wxWindow&, wxMenu& menu, const wxPoint&) { captions = captionsOf(menu); });
    const auto shows = [&](const std::string& name, const Lines& more) {
        rightClick(list(frame, name));
        Lines expected{"Add", "Edit", "-", "Remove", "Clear"};
        expected.insert(expected.end(), more.begin(), more.end());
        EXPECT_EQ(expected, captions);
    };
    shows("listInclude", {"-", "Cut", "Copy", "Paste", "Select all"});
    shows("listVar", {"-", "Edit in form ...", "-", "Cut", "Copy", "Paste", "Select all"});
    shows("listCommand", {"-", "For ...", "... Next", "-", "Edit in form ...", "Command line ...", "-", "Cut", "Copy",
                          "Paste", "Select all"});
}

TEST_F(Editor, EachListHasItsOwnAddEditAndRemove) {
    wxFrame& frame = open();
    auto& includes = list(frame, "listInclude");
    windows.fileAnswers = {inDirectory("libraries/x.bqs"), "/elsewhere/y.bqp"};
    activate(includes);
    choosePopUp(includes, "Add");
    EXPECT_EQ(1U, includes.selectedLine());
    modals.textAnswers = {":Include edited"};
    choosePopUp(includes, "Edit");  // the pointer is on the first line
    EXPECT_EQ((Lines{":Include edited", ":Include /elsewhere/y.bqp"}), shownIn(includes));
    pressKey(includes, WXK_DELETE);
    EXPECT_EQ(Lines{":Include /elsewhere/y.bqp"}, shownIn(includes));
    choosePopUp(includes, "Clear");
    EXPECT_EQ(0, includes.GetItemCount());

    next([](wxDialog& window) { click(window, "Command4"); });
    activate(list(frame, "listVar"));
    next([](wxDialog& window) { click(window, "cmdCancel"); });
    pressKey(list(frame, "listCommand"), WXK_INSERT);
    EXPECT_EQ((Lines{"frmAddVar", "frmAddCommand"}), modals.shown);
}

TEST_F(Editor, GroupsMoveByButtonsAndKeysAndStaySelected) {
    wxFrame& frame = openWith(sampleCommands);
    auto& commands = list(frame, "listCommand");
    commands.selectLine(6);
    click(frame, "cmdUp");
    EXPECT_EQ(1U, commands.selectedLine());
    EXPECT_EQ("    .x=$i$", commands.GetItemText(1));
    pressKey(commands, WXK_DOWN, true);
    click(frame, "cmdDown");
    EXPECT_EQ(7U, commands.selectedLine());
    pressKey(commands, WXK_UP, true);
    EXPECT_EQ("Next", commands.GetItemText(7));
}

TEST_F(Editor, ArrowsBesideEachListGreyOutAtItsEnds) {
    wxFrame& frame = open();
    windows.fileAnswers = {inDirectory("libraries/x.bqs"), "/elsewhere/y.bqp"};
    auto& includes = list(frame, "listInclude");
    for (int i = 0; i < 2; ++i) activate(includes);
    const auto enabled = [&](const std::string& button) { return control<wxButton>(frame, button).IsEnabled(); };
    EXPECT_TRUE(enabled("cmdUpInclude") && !enabled("cmdDownInclude")) << "the last one is selected";
    click(frame, "cmdUpInclude");
    EXPECT_EQ(0U, includes.selectedLine());
    EXPECT_TRUE(!enabled("cmdUpInclude") && enabled("cmdDownInclude"));
    EXPECT_FALSE(enabled("cmdUp") || enabled("cmdDown") || enabled("cmdUpVar"));
    pressKey(includes, WXK_DOWN, true);
    EXPECT_EQ(1U, includes.selectedLine());
}

TEST_F(Editor, GroupsAreCutCopiedPastedAndDropped) {
    wxFrame& frame = openWith(sampleCommands);
    auto& commands = list(frame, "listCommand");
    commands.selectLines({0, 5});
    pressKey(commands, 'C', true);
    EXPECT_EQ("For\n.VarName=i\n.VarStart=1\n.VarEnd=2\n.VarStep=1\ncall\n.x=$i$", windows.clipboardText());
    choosePopUp(commands, "Cut");
    EXPECT_EQ(Lines{"Next"}, shownIn(commands));
    choosePopUp(commands, "Paste");
    EXPECT_EQ(8, commands.GetItemCount());
    EXPECT_EQ((std::vector<std::size_t>{1, 2, 3, 4, 5, 6, 7}), commands.selectedLines());
    auto& variables = list(frame, "listVar");
    variables.SetFocus();
    pump();
    chooseFromMenu(frame, "Select all");
    chooseFromMenu(frame, "Copy");
    chooseFromMenu(frame, "Paste");
    EXPECT_EQ((Lines{"count", "    .Type=Text", "    .Info=none", "count", "    .Type=Text", "    .Info=none"}),
              shownIn(variables));
    auto& name = control<wxTextCtrl>(frame, "profileName");
    name.SetFocus();
    name.SelectAll();
    pump();
    chooseFromMenu(frame, "Cut");
    EXPECT_EQ("", name.GetValue()) << "where the keys go";
    chooseFromMenu(frame, "Find");
    windows.copyToClipboard("next");
    chooseFromMenu(frame, "Paste");
    EXPECT_EQ("next", control<wxTextCtrl>(frame, "txtFind").GetValue());
    EXPECT_EQ((std::vector<std::size_t>{0}), commands.selectedLines());
    EXPECT_EQ(8, commands.GetItemCount());
}

TEST_F(Editor, TheLoopDialogComesBehindTheMenu) {
    wxFrame& frame = open();
    auto& commands = list(frame, "listCommand");
    modals.textAnswers = {"i"};
    const std::string wide(300, 'w');
    for (const std::string& answer : {std::string("1"), std::string("$index$"), wide}) nextInput(answer);
    choosePopUp(commands, "For ...");
    EXPECT_TRUE(modals.shown.empty());
    waitForModals();
    choosePopUp(commands, "... Next");
    Lines rows = shownIn(commands);
    ASSERT_EQ(6U, rows.size());
    EXPECT_TRUE(rows[4].starts_with("    .VarStep=www") && rows[4].ends_with("w...")) << rows[4];
    rows.erase(rows.begin() + 4);
    EXPECT_EQ((Lines{"For", "    .VarName=i", "    .VarStart=1", "    .VarEnd=$index$", "Next"}), rows);
    EXPECT_GE(commands.GetColumnWidth(0), commands.GetTextExtent(toWx(wide)).x);
}

TEST_F(Editor, ACommandLineIsEditedWithReferences) {
    wxFrame& frame = openWith({"first", "echo one two"});
    auto& commands = list(frame, "listCommand");
    setMenuPresenter([&](wxWindow&, wxMenu& menu, const wxPoint&) {
        EXPECT_EQ("$exepath$", captionsOf(menu).front());
        wxCommandEvent event(wxEVT_MENU, menu.FindItem("$count$"));
        menu.ProcessEvent(event);
    });
    next([](wxDialog& window) {
        EXPECT_EQ("Enter value", window.GetTitle());
        EXPECT_EQ("Edit this value :", control<wxStaticText>(window, "descriptionCaption").GetLabel());
        auto& box = control<wxTextCtrl>(window, "valueBox");
        EXPECT_EQ("echo one two", box.GetValue());
        click(window, "Command3");
        EXPECT_EQ("echo one two$count$", box.GetValue());
        box.SetSelection(5, 8);
        click(window, "Command3");
        EXPECT_EQ("echo $count$ two$count$", box.GetValue());
        EXPECT_EQ(12, box.GetInsertionPoint());
        brasquelin::pressKey(box, WXK_RETURN);
    });
    commands.selectLine(1);
    pressKey(commands, WXK_F2);
    waitForModals();
    EXPECT_EQ((Lines{"first", "echo $count$ two$count$"}), shownIn(commands));
}

TEST_F(Editor, DeclaresAVariable) {
    wxFrame& frame = open();
    next([this](wxDialog& window) {
        EXPECT_EQ("Add var to project", window.GetTitle());
        type(window, "Text1", "mode");
        choose(window, "Combo1", 1);
        for (const char* answer : {"fast", "-O2", "unused"}) nextInput(answer);
        click(window, "Command2");
        click(window, "Command1");
        EXPECT_EQ("fast[-O2]", control<wxListBox>(window, "Combo4").GetString(0));
        EXPECT_EQ("unused", control<wxListBox>(window, "Combo2").GetString(0));
        EXPECT_EQ("$exepath$", control<wxListBox>(window, "List1").GetString(0));
        choose(window, "List1", 4);
        doubleClick(window, "List1");
        auto& info = control<wxTextCtrl>(window, "Text3");
        info.Clear();
        info.Paste();
        pump();
        EXPECT_EQ("$scriptpathdbslash$", info.GetValue()) << "by way of the clipboard";
        type(window, "Text3", "How fast");
        type(window, "Text4", "1");
        click(window, "Command3");
    });
    activate(list(frame, "listVar"));
    EXPECT_EQ((Lines{"mode", "    .Type=Comb(fast[-O2])", "    .Info=How fast", "    .Default=1"}),
              shownIn(list(frame, "listVar")));
    EXPECT_EQ(0U, list(frame, "listVar").selectedLine());
}

TEST_F(Editor, ChangesADeclarationInTheFormThatMakesThem) {
    wxFrame& frame = openWith({"call"});
    auto& variables = list(frame, "listVar");
    next([this](wxDialog& window) {
        const auto applies = [&](const char* field) { return findControl(window, field)->IsThisEnabled(); };
        const auto note = [&] { return fromWx(control<wxStaticText>(window, "note").GetLabel()); };
        EXPECT_EQ("Edit var of project", window.GetTitle());
        EXPECT_EQ("count", control<wxTextCtrl>(window, "Text1").GetValue());
        EXPECT_FALSE(applies("Combo2") || applies("Combo4") || applies("Text2"));
        type(window, "Text1", "");
        EXPECT_EQ("It has no name: a profile cannot use it.", note());
        type(window, "Text1", "number");
        EXPECT_EQ("", note());
        for (const char* answer : {"one", "two", "three"}) {
            nextInput(answer);
            click(window, "Command1");
        }
        EXPECT_EQ("List", control<DropDown>(window, "Combo1").GetStringSelection()) << "by its first choice";
        EXPECT_TRUE(applies("Combo2") && !applies("Combo4") && !applies("Text2"));
        auto& choices = control<wxListBox>(window, "Combo2");
        setMenuPresenter([](wxWindow&, wxMenu& menu, const wxPoint&) {
            wxCommandEvent event(wxEVT_MENU, menu.FindItem("Move down"));
            menu.ProcessEvent(event);
        });
        choose(window, "Combo2", 0);
        rightClick(choices);
        EXPECT_EQ("one", choices.GetString(1));
        choose(window, "Combo2", 2);
        nextInput("second");
        brasquelin::pressKey(choices, WXK_F2);
        choose(window, "Combo2", 0);
        brasquelin::pressKey(choices, WXK_DELETE);
        click(window, "Command3");
    });
    variables.selectLine(1);
    choosePopUp(variables, "Edit in form ...");
    EXPECT_EQ((Lines{"number", "    .Type=List(one||second)", "    .Info=none", "    .Default="}), shownIn(variables));
    EXPECT_EQ(0U, variables.selectedLine());
}

TEST_F(Editor, ChangesCallsAndWritesCommandLines) {
    wxFrame& frame = openWith({"BasicFunction.say=text=a", "Next"});
    auto& commands = list(frame, "listCommand");
    next([this](wxDialog& window) {
        EXPECT_EQ("BasicFunction.say", control<DropDown>(window, "Combo1").GetStringSelection());
        next([](wxDialog& input) {
            EXPECT_EQ("text=a", control<wxTextCtrl>(input, "valueBox").GetValue());
            type(input, "valueBox", "text=b");
            click(input, "cmdOK");
        });
        click(window, "Command1");
    });
    commands.selectLine(0);
    choosePopUp(commands, "Edit in form ...");
    nextInput("BasicFunction.say=text=c");
    chooseFromMenu(frame, "Command line ...");
    EXPECT_EQ((Lines{"BasicFunction.say=text=b", "BasicFunction.say=text=c", "Next"}), shownIn(commands));
    EXPECT_EQ(1U, commands.selectedLine());
}

TEST_F(Editor, TellsWhyNothingCanBeCalled) {
    wxFrame& frame = open();
    settings.basicFunctionPath.clear();
    next([](wxDialog& window) {
        EXPECT_FALSE(control<wxButton>(window, "Command1").IsEnabled());
        EXPECT_TRUE(control<wxStaticText>(window, "note").GetLabel().StartsWith("Nothing can be called yet"));
        click(window, "cmdCancel");
    });
    activate(list(frame, "listCommand"));
}

TEST_F(Editor, CallsAnInclude) {
    writeFile("libraries/x.bqs", "#Brasquelin Library  Pack\n[var]\nsrc\n.Type=Text\n.Info=none\n[/var]\n");
    wxFrame& frame = open();
    windows.fileAnswers = {inDirectory("libraries/x.bqs")};
    activate(list(frame, "listInclude"));
    next([this](wxDialog& window) {
        EXPECT_EQ("Add Command To Project", window.GetTitle());
        EXPECT_EQ(2U, control<DropDown>(window, "Combo1").GetCount());
        choose(window, "Combo1", 0);
        nextInput("$scriptpath$");
        click(window, "Command1");
    });
    activate(list(frame, "listCommand"));
    EXPECT_EQ((Lines{"Pack", "    .src=$scriptpath$"}), shownIn(list(frame, "listCommand")));
    EXPECT_EQ(0U, list(frame, "listCommand").selectedLine());
}

TEST_F(Editor, WaitsForItsPluginsWithoutLosingItsDocument) {
    wxFrame& frame = open();
    writeFile("tool.exe", "");
    writeFile("profiles/p.bqp", "#Brasquelin Profile P\n[library]\n:Plugin $exepath$/tool.exe\n[/library]\n");
    processes.actions.emplace_back("tool.exe", [&] {
        writeFile("tool.var", "files = 3\n");
        EXPECT_EQ(1, list(frame, "listInclude").GetItemCount()) << "the new document is shown already";
        EXPECT_FALSE(control<wxTextCtrl>(frame, "profileName").IsEditable());
        frame.Close();  // while the plugin runs
        chooseFromMenu(frame, "New");
    });
    windows.fileAnswers.push_back(inDirectory("profiles/p.bqp"));
    childProcessId = 7;
    chooseFromMenu(frame, "Open");
    EXPECT_EQ(std::vector<std::uint32_t>{7}, processes.terminated);
    EXPECT_TRUE(windows.isVisible(ProgramWindow::createProfile));
    EXPECT_EQ(1, list(frame, "listInclude").GetItemCount());
    EXPECT_EQ("p.bqp - Profile Editor", frame.GetTitle());
    EXPECT_TRUE(control<wxTextCtrl>(frame, "profileName").IsEditable());
    next([](wxDialog& window) {
        auto& references = control<wxListBox>(window, "List1");
        EXPECT_EQ("$files$", references.GetString(5));
        click(window, "Command4");
    });
    activate(list(frame, "listVar"));
}

}  // namespace
}  // namespace brasquelin
