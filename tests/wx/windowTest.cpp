#include "wx/windowTest.h"

#include <wx/app.h>
#include <wx/button.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/msgdlg.h>
#include <wx/stopwatch.h>
#include <wx/textctrl.h>
#include <wx/textdlg.h>
#include <wx/toolbar.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "platform/wx/application.h"
#include "platform/wx/dropDown.h"
#include "platform/wx/popUpMenu.h"
#include "platform/wx/programDialog.h"
#include "platform/wx/wxText.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

/// Below a file nothing can be written: the registration of file types fails, silently, and leaves no process behind.
void keepOutOfUserData(const std::string& directory) {
    wxSetEnv("HOME", toWx(directory));
    wxSetEnv("XDG_DATA_HOME", toWx(directory + "/functions.ini"));
}

void send(wxWindow& target, wxEventType type, int id) {
    wxCommandEvent event(type, id);
    event.SetEventObject(&target);
    target.HandleWindowEvent(event);
}

}  // namespace

TestDesktop::ChosenFile TestDesktop::chooseFile(const FileDialogRequest& request) {
    fileRequests.push_back(request);
    if (fileAnswers.empty()) return {};
    ChosenFile answer{fileAnswers.front(), 0};
    fileAnswers.pop_front();
    return answer;
}

std::uint32_t WindowTestProcesses::start(std::string_view command, WindowStyle style) {
    if (command.empty()) throw RunTimeError(ErrorNumber::invalidCall);
    return FakeProcessTable::start(command, style);
}

int ModalScript::answerQuestion(wxDialog& dialog) {
    auto* box = dynamic_cast<wxTextEntryDialog*>(&dialog);
    if (!box) return wxID_NONE;
    textQuestions.push_back(fromWx(box->GetTitle()) + " / " + fromWx(box->GetValue()));
    if (textAnswers.empty()) return wxID_CANCEL;
    const auto answer = textAnswers.front();
    textAnswers.pop_front();
    if (answer) box->SetValue(toWx(*answer));
    return answer ? wxID_OK : wxID_CANCEL;
}

int ModalScript::takeChoice() {
    if (choices.empty()) return wxID_CANCEL;
    const int choice = choices.front();
    choices.pop_front();
    return choice;
}

int ModalScript::Enter(wxDialog* dialog) {
    if (!dialog) return wxID_NONE;
    if (const auto* box = dynamic_cast<wxMessageDialogBase*>(dialog)) {
        messages.push_back(fromWx(box->GetCaption()) + ": " + fromWx(box->GetMessage()));
        if (!(box->GetMessageDialogStyle() & wxYES_NO)) return wxID_OK;
        if (box->GetMessageDialogStyle() & wxCANCEL) return takeChoice();
        const bool yes = !yesNo.empty() && yesNo.front();
        if (!yesNo.empty()) yesNo.pop_front();
        return yes ? wxID_YES : wxID_NO;
    }
    if (const int answer = answerQuestion(*dialog); answer != wxID_NONE) return answer;
    const std::string name = fromWx(dialog->GetName());
    shown.push_back(name);
    if (name == "frmWait") return wxID_NONE;  // ends by its own timer
    if (steps.empty()) {
        ADD_FAILURE() << name << " was not expected";
        return wxID_CANCEL;
    }
    wxTheApp->CallAfter([dialog, name, step = steps.front()] {
        const wxWeakRef<wxDialog> weak(dialog);
        step(*dialog);
        // A closed dialog may count as modal until its loop has been left, so the next turn tells.
        wxTheApp->CallAfter([weak, name] {
            if (!weak || !weak->IsShown()) return;
            ADD_FAILURE() << name << " was left open";
            weak->EndModal(wxID_CANCEL);
        });
    });
    steps.pop_front();
    return wxID_NONE;
}

WindowTest::WindowTest() {
    const std::string directory = utf8(directory_.path());
    keepOutOfUserData(directory);
    setProgramDirectory(directory);
    setDesktop(windows);
    setProcessTable(&processes);
    setClock(&clock);
    childProcessId = 0;
    for (const char* folder : {"profiles", "libraries", "data"}) {
        std::filesystem::create_directory(directory_.path() / folder);
    }
    writeFile("functions.ini", "say\n$exepath$/say.ini\n");
    writeFile("say.ini",
              "#\n[var]\ntext\n.Type=Text\n.Info=i\n.Default=\n[/var]\n[command]\nType=shell\nCommand=echo $text$\n"
              "[/command]\n");
    writeFile("Brasquelin.ini",
              "[config]\nLibraryPath = $exepath$/libraries\nProfilePath = $exepath$/profiles\n"
              "BasicFunctionPath = $exepath$/functions.ini\n[/config]\n");
    modals.Register();
}

WindowTest::~WindowTest() {
    EXPECT_TRUE(modals.steps.empty()) << "a modal window was not shown";
    modals.Unregister();
    setMenuPresenter({});
    while (!wxTopLevelWindows.empty()) delete wxTopLevelWindows.GetFirst()->GetData();
    setProcessTable(nullptr);
    setClock(nullptr);
    forgetTextFiles();
    changeDirectory(utf8(std::filesystem::temp_directory_path()));
}

std::string WindowTest::inDirectory(const std::string& name) const {
    return joinPath(programDirectory(), name);
}

std::string WindowTest::writeFile(const std::string& name, const std::string& text) {
    return directory_.writeLines(name, text);
}

std::string WindowTest::readFile(const std::string& name) {
    return directory_.read(name);
}

std::string WindowTest::writeProfile(const std::string& file, const std::string& title, const std::string& variables,
                                     const std::string& said) {
    return writeFile(file, "#Brasquelin Profile " + title + "\n[var]\n" + variables +
                               "[/var]\n[profile]\nBasicFunction.say=text=" + said + "\n[/profile]\n");
}

wxFrame& WindowTest::start(const std::string& commandLine) {
    windows.start(commandLine);
    pump();
    return dynamic_cast<wxFrame&>(*loadedWindow("frmMain"));
}

std::optional<int> WindowTest::endOf(const std::function<void()>& action) {
    try {
        action();
        pump();
        return std::nullopt;
    } catch (const EndProgram& end) {
        return end.exitStatus();
    }
}

void pump() {
    rethrowFromEvents();
    for (int round = 0; round < 5; ++round) wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_ALL);
}

bool becomesTrue(const std::function<bool()>& condition) {
    const wxStopWatch watch;
    for (pump(); !condition() && watch.Time() < 5000; pump()) wxMilliSleep(5);
    return condition();
}

wxTopLevelWindow* loadedWindow(const std::string& name) {
    for (auto* window : wxTopLevelWindows) {
        if (window->GetName() == toWx(name) && !wxPendingDelete.Member(window)) {
            return static_cast<wxTopLevelWindow*>(window);
        }
    }
    return nullptr;
}

wxWindow* findControl(wxWindow& window, const std::string& name) {
    return wxWindow::FindWindowByName(toWx(name), &window);
}

void click(wxWindow& window, const std::string& button) {
    auto& found = control<wxButton>(window, button);
    if (found.IsThisEnabled()) send(found, wxEVT_BUTTON, found.GetId());
}

void type(wxWindow& window, const std::string& box, const std::string& text) {
    control<wxTextCtrl>(window, box).SetValue(toWx(text));
}

void choose(wxWindow& window, const std::string& list, int position) {
    auto* found = findControl(window, list);
    if (auto* dropDown = dynamic_cast<DropDown*>(found)) {
        dropDown->SetSelection(position);
        send(*dropDown, wxEVT_COMBOBOX, dropDown->GetId());
    } else {
        auto& box = control<wxListBox>(window, list);
        box.SetSelection(position);
        send(box, wxEVT_LISTBOX, box.GetId());
    }
}

void doubleClick(wxWindow& window, const std::string& list) {
    auto& box = control<wxListBox>(window, list);
    send(box, wxEVT_LISTBOX_DCLICK, box.GetId());
}

void pressKey(wxWindow& target, int keyCode) {
    for (const auto type : {wxEVT_CHAR_HOOK, wxEVT_KEY_DOWN}) {
        wxKeyEvent event(type);
        event.m_keyCode = keyCode;
        event.SetEventObject(&target);
        if (target.HandleWindowEvent(event)) return;
    }
}

void chooseFromMenu(wxFrame& frame, const std::string& caption) {
    const wxMenuBar& bar = *frame.GetMenuBar();
    for (std::size_t i = 0; i < bar.GetMenuCount(); ++i) {
        const int item = bar.GetMenu(i)->FindItem(toWx(caption));
        if (item != wxNOT_FOUND) return send(frame, wxEVT_MENU, item);
    }
    ADD_FAILURE() << "no menu item " << caption;
}

Lines captionsOf(const wxMenu& menu) {
    Lines captions;
    for (const auto* item : menu.GetMenuItems()) {
        captions.push_back(item->IsSeparator() ? "-" : fromWx(item->GetItemLabelText()));
    }
    return captions;
}

void rightClick(wxWindow& list) {
    wxContextMenuEvent event(wxEVT_CONTEXT_MENU, list.GetId(), list.ClientToScreen(wxPoint(5, 5)));
    event.SetEventObject(&list);
    list.HandleWindowEvent(event);
}

void choosePopUps(const std::string& caption) {
    setMenuPresenter([caption](wxWindow& window, wxMenu& menu, const wxPoint&) {
        send(window, wxEVT_MENU, menu.FindItem(toWx(caption)));
    });
}

void clickTool(wxFrame& frame, const std::string& caption) {
    auto& toolbar = *frame.GetToolBar();
    for (std::size_t i = 0; i < toolbar.GetToolsCount(); ++i) {
        const auto* tool = toolbar.GetToolByPos(static_cast<int>(i));
        if (tool->GetLabel() == toWx(caption)) send(toolbar, wxEVT_TOOL, tool->GetId());
    }
}

}  // namespace brasquelin
