// A desktop that records what it is told and answers from a script.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/desktop.h"

namespace brasquelin {

class ScriptedDesktop : public Desktop {
  public:
    std::vector<std::string> messages;     // "title: text"
    std::vector<std::string> questions;    // the same of Yes/No boxes and input boxes
    std::vector<std::string> windowCalls;  // "show frmWait modal", "show frmWait", "unload frmWait"
    std::vector<FileDialogRequest> dialogs;
    std::string clipboard;
    bool yes = false;                                     // the answer to every Yes/No box
    bool windows = true;                                  // what hasWindows tells
    std::deque<std::string> texts;                        // answers of input boxes; cancelled when there is none left
    std::deque<std::string> files;                        // answers of file dialogs, likewise
    std::map<std::string, std::function<void()>> onShow;  // acts for the user when a window is shown
    std::function<void()> onEvents;                       // acts while pending events are processed

    bool hasWindows() const override { return windows; }
    bool askYesNo(std::string_view text, std::string_view title) override;
    std::optional<std::string> askText(std::string_view prompt, std::string_view title,
                                       std::string_view defaultText) override;
    std::string askFile(const FileDialogRequest& request) override;
    void copyToClipboard(std::string_view text) override { clipboard = text; }
    void openLink(std::string_view target) override { questions.emplace_back(target); }
    void showWindow(std::string_view name, bool modal) override;
    void unloadWindow(std::string_view name) override;
    bool isVisible(std::string_view name) const override;
    void processPendingEvents() override;

  protected:
    void presentMessage(std::string_view text, std::string_view title, Icon icon) override;

  private:
    std::map<std::string, bool, std::less<>> visible_;
};

}  // namespace brasquelin
