// The desktop with windows.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/desktop.h"

class wxDialog;
class wxTopLevelWindow;

namespace brasquelin {

class ProgramDialog;

class WxDesktop : public Desktop {
  public:
    using WindowFactory = std::function<wxTopLevelWindow*()>;

    /// How the window of this name is made when it is shown for the first time, or again after it was unloaded.
    void registerWindow(std::string name, WindowFactory factory);

    /// The window of this name, made but not shown if there is none yet. Raises error 5 for an unknown name.
    wxTopLevelWindow& loadWindow(std::string_view name);

    bool hasWindows() const override { return true; }
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

  private:
    std::map<std::string, WindowFactory, std::less<>> factories_;
};

/// The loaded window of this name, or null.
wxTopLevelWindow* loadedWindow(std::string_view name);

}  // namespace brasquelin
