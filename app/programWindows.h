// The desktop with all windows of the program.
#pragma once

#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <array>
#include <string>

#include "app/frmWait.h"
#include "platform/wx/wxDesktop.h"

class wxDialog;

namespace brasquelin {

class ProgramWindows : public WxDesktop {
  public:
    /// Loads the main window, starts up with the command line, and shows the window unless start-up has ended the
    /// program.
    void start(const std::string& commandLine);

    void showWindow(ProgramWindow window, bool modal) override;
    void unloadWindow(ProgramWindow window) override;
    bool isVisible(ProgramWindow window) const override;
    ValueAnswer askValue(const ValueQuestion& question) override;
    void showPrompt(std::shared_ptr<PromptForm> form, bool modal) override;
    void closePrompt() override;
    void runBehindWaitWindow(std::function<void()> run) override;
    void showListProgress(std::shared_ptr<ListProgress> progress) override;
    void closeWaitWindow() override;
    void showRunning(const std::string& what, std::function<void()> cancel) override;
    void hideRunning() override;

  private:
    wxTopLevelWindow* loaded(ProgramWindow window) const;
    wxTopLevelWindow& load(ProgramWindow window);

    static constexpr std::size_t windowCount = static_cast<std::size_t>(ProgramWindow::preview) + 1;
    std::array<wxWeakRef<wxTopLevelWindow>, windowCount> windows_;
    wxWeakRef<wxTopLevelWindow> prompt_;
    wxWeakRef<FrmWait> wait_;
};

}  // namespace brasquelin
