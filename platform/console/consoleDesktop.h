// The desktop of a machine without a display: messages on standard error, every question declined.
#pragma once

#include "platform/desktop.h"

namespace brasquelin {

class ConsoleDesktop : public Desktop {
  public:
    bool hasWindows() const override { return false; }
    bool askYesNo(std::string_view text, std::string_view title) override;
    std::optional<std::string> askText(std::string_view prompt, std::string_view title,
                                       std::string_view defaultText) override;
    std::string askFile(const FileDialogRequest& request) override;
    void copyToClipboard(std::string_view /*text*/) override {}
    std::string clipboardText() override { return {}; }
    void openLink(std::string_view target) override;
    void showWindow(ProgramWindow window, bool modal) override;
    void unloadWindow(ProgramWindow /*window*/) override {}
    bool isVisible(ProgramWindow /*window*/) const override { return false; }
    ValueAnswer askValue(const ValueQuestion& question) override;
    void showPrompt(std::shared_ptr<PromptForm> form, bool modal) override;
    void closePrompt() override {}
    void runBehindWaitWindow(std::function<void()> run) override { run(); }
    void showListProgress(std::shared_ptr<ListProgress> /*progress*/) override {}
    void closeWaitWindow() override {}
    void showRunning(const std::string& /*what*/, std::function<void()> /*cancel*/) override {}
    void hideRunning() override {}
    void processPendingEvents() override {}

  protected:
    void presentMessage(std::string_view text, std::string_view title, Icon icon) override;

  private:
    void decline(std::string_view title, const std::string& text);
};

}  // namespace brasquelin
