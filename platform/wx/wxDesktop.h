// The desktop with a display: boxes, dialogs, and what every window of the program needs to be shown.
#pragma once

#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <functional>
#include <string>

#include "platform/desktop.h"

class wxDialog;

namespace brasquelin {

class WxDesktop : public Desktop {
  public:
    bool hasWindows() const override { return true; }
    bool askYesNo(std::string_view text, std::string_view title) override;
    std::optional<std::string> askText(std::string_view prompt, std::string_view title,
                                       std::string_view defaultText) override;
    std::optional<std::string> askEdit(std::string_view prompt, std::string_view title, std::string_view line) override;
    std::string askFile(const FileDialogRequest& request) override;
    void copyToClipboard(std::string_view text) override;
    std::string clipboardText() override;
    void openLink(std::string_view target) override;
    void showRunning(const std::string& what, std::function<void()> cancel) override;
    void hideRunning() override;
    void processPendingEvents() override;

  protected:
    /// What the toolkit's file dialog gives: the name as it was typed, the filter's pair that was selected.
    struct ChosenFile {
        std::string path;  // empty when cancelled
        std::size_t filterIndex = 0;
    };
    virtual ChosenFile chooseFile(const FileDialogRequest& request);

    void presentMessage(std::string_view text, std::string_view title, Icon icon) override;

    /// False for a window that has closed, also while the toolkit still keeps it.
    static bool isLoaded(const wxTopLevelWindow* window);
    static void showModeless(wxTopLevelWindow& window);
    /// Shows a dialog modally and destroys it; what it left to be done behind it is done then.
    static void showUntilClosed(wxDialog& window);
    /// Closes a window as the program does it, not as the user.
    static void unload(wxTopLevelWindow& window);

  private:
    static std::optional<std::string> askInBox(std::string_view prompt, std::string_view title,
                                               std::string_view defaultText, bool edits);

    wxWeakRef<wxTopLevelWindow> running_;
};

}  // namespace brasquelin
