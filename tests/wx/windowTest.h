// The real windows under test: each test runs inside the event loop with a program directory of its own. Controls are
// found by their names; what is shown modally is answered by a script.
#pragma once

#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/modalhook.h>
#include <wx/window.h>

#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/programWindows.h"
#include "support/fakeProcesses.h"
#include "support/scratchDirectory.h"

namespace brasquelin {

/// The desktop with windows, except that file dialogs and links are scripted.
class TestDesktop : public ProgramWindows {
  public:
    void openLink(std::string_view target) override { links.emplace_back(target); }

    std::deque<std::string> fileAnswers;
    std::vector<FileDialogRequest> fileRequests;
    Lines links;

  protected:
    ChosenFile chooseFile(const FileDialogRequest& request) override;
};

/// Rejects the empty command as the system does.
class WindowTestProcesses : public FakeProcessTable {
  public:
    std::uint32_t start(std::string_view command, WindowStyle style) override;
};

using ModalStep = std::function<void(wxDialog&)>;

/// Message boxes are written down as "title: text" and confirmed, a question is answered with the next of `yesNo` or
/// No, one with a third button with the next of `choices` or that button, input boxes get the next answer, each other
/// modal window the next step, inside its own loop. A window without a step, or left open by it, fails the test.
class ModalScript : public wxModalDialogHook {
  public:
    Lines messages;
    std::deque<bool> yesNo;
    std::deque<int> choices;  // wxID_YES, wxID_NO, wxID_CANCEL
    std::deque<std::optional<std::string>> textAnswers;
    Lines textQuestions;
    std::deque<ModalStep> steps;
    Lines shown;  // the names of the windows

  protected:
    int Enter(wxDialog* dialog) override;

  private:
    int answerQuestion(wxDialog& dialog);
    int takeChoice();
};

class WindowTest : public testing::Test {
  protected:
    WindowTest();
    ~WindowTest() override;

    /// A file in the program directory; "\n" becomes CR LF. Gives its full path.
    std::string writeFile(const std::string& name, const std::string& text);
    std::string readFile(const std::string& name);
    std::string inDirectory(const std::string& name) const;
    /// A profile with these declarations whose job is "echo " + `said`.
    std::string writeProfile(const std::string& file, const std::string& title, const std::string& variables,
                             const std::string& said);

    /// The main window after a start with this command line.
    wxFrame& start(const std::string& commandLine = {});
    /// The exit status when the action ended the program.
    std::optional<int> endOf(const std::function<void()>& action);
    /// Runs the next modal window through this.
    void next(ModalStep step) { modals.steps.push_back(std::move(step)); }

    TestDesktop windows;
    FakeClock clock;
    WindowTestProcesses processes;
    ModalScript modals;

  private:
    ScratchDirectory directory_;
};

/// Processes events until nothing is left to do.
void pump();

/// Processes events until the condition holds; timers are real. False when it still does not after some seconds.
bool becomesTrue(const std::function<bool()>& condition);

/// The window of the program that has this name and has not closed, or null.
wxTopLevelWindow* loadedWindow(const std::string& name);

wxWindow* findControl(wxWindow& window, const std::string& name);

template <typename Control>
Control& control(wxWindow& window, const std::string& name) {
    auto* found = dynamic_cast<Control*>(findControl(window, name));
    if (!found) throw std::runtime_error("no control " + name);
    return *found;
}

void click(wxWindow& window, const std::string& button);
void type(wxWindow& window, const std::string& box, const std::string& text);
void choose(wxWindow& window, const std::string& list, int position);
void doubleClick(wxWindow& window, const std::string& list);
void pressKey(wxWindow& target, int keyCode);
void chooseFromMenu(wxFrame& frame, const std::string& caption);
Lines captionsOf(const wxMenu& menu);
/// Opens the list's pop-up menu.
void rightClick(wxWindow& list);
/// From now on each pop-up menu is answered by this choice.
void choosePopUps(const std::string& caption);
void clickTool(wxFrame& frame, const std::string& caption);

}  // namespace brasquelin
