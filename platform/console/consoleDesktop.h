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
    void copyToClipboard(std::string_view text) override;
    void openLink(std::string_view target) override;
    void showWindow(std::string_view name, bool modal) override;
    void unloadWindow(std::string_view name) override;
    bool isVisible(std::string_view name) const override;
    void processPendingEvents() override;

  protected:
    void presentMessage(std::string_view text, std::string_view title, Icon icon) override;
};

}  // namespace brasquelin
