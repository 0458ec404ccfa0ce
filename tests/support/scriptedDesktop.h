// A desktop that records what it is told and answers from a script.
#pragma once

#include <deque>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "platform/desktop.h"
#include "vars/promptForm.h"

namespace brasquelin {

class ScriptedDesktop : public Desktop {
  public:
    std::vector<std::string> messages;     // "title: text"
    std::vector<std::string> questions;    // the same of Yes/No boxes and input boxes
    std::vector<std::string> windowCalls;  // "show frmOption modal", "show frmMain", "unload frmMain", "wait" ...
    std::shared_ptr<PromptForm> prompt;    // shown last
    std::vector<ValueQuestion> valueQuestions;
    std::deque<std::string> values;    // answers of the value window; cancelled when there is none left
    bool stopsChains = false;          // or, instead, the whole chain stopped
    std::vector<std::string> running;  // what the user was told that is running
    std::vector<FileDialogRequest> dialogs;
    std::string clipboard;
    bool yes = false;                             // the answer to every Yes/No box
    bool windows = true;                          // what hasWindows tells
    std::deque<std::string> texts;                // answers of input boxes; cancelled when there is none left
    std::deque<std::string> files;                // answers of file dialogs, likewise
    std::function<void()> onEvents;               // acts while pending events are processed
    std::function<void(ProgramWindow)> onWindow;  // acts in place of a modal window
    std::shared_ptr<ListProgress> progress;       // while a list is worked off

    bool hasWindows() const override { return windows; }
    bool askYesNo(std::string_view text, std::string_view title) override;
    std::optional<std::string> askText(std::string_view question, std::string_view title,
                                       std::string_view defaultText) override;
    std::string askFile(const FileDialogRequest& request) override;
    void copyToClipboard(std::string_view text) override { clipboard = text; }
    std::string clipboardText() override { return clipboard; }
    void openLink(std::string_view target) override { questions.emplace_back(target); }
    void showWindow(ProgramWindow window, bool modal) override;
    void unloadWindow(ProgramWindow window) override;
    bool isVisible(ProgramWindow window) const override { return visible_.contains(window); }
    ValueAnswer askValue(const ValueQuestion& question) override;
    void showPrompt(std::shared_ptr<PromptForm> form, bool modal) override;
    void closePrompt() override {}
    void runBehindWaitWindow(std::function<void()> run) override;
    void showListProgress(std::shared_ptr<ListProgress> shown) override;
    void closeWaitWindow() override;
    void showRunning(const std::string& what, std::function<void()> cancel) override;
    void hideRunning() override {}
    void processPendingEvents() override;

  protected:
    void presentMessage(std::string_view text, std::string_view title, Icon icon) override;

  private:
    std::set<ProgramWindow> visible_;
    bool waiting_ = false;
};

}  // namespace brasquelin
