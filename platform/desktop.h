// What the program asks of the desktop: boxes, dialogs, windows by their names, events.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brasquelin {

enum class Icon { none, information, exclamation, critical };
enum class FileDialogMode { open, save };

struct FileDialogRequest {
    FileDialogMode mode = FileDialogMode::open;
    std::string title;
    std::string filter;     // "Text files|*.txt", pairs separated by "|"
    std::string startName;  // full name to start from; may be empty
};

class Desktop {
  public:
    virtual ~Desktop() = default;

    /// False for a desktop without a display: messages go to standard error, nothing can be asked or shown.
    virtual bool hasWindows() const = 0;

    void showMessage(std::string_view text, std::string_view title, Icon icon);
    /// A Yes/No box.
    virtual bool askYesNo(std::string_view text, std::string_view title) = 0;
    /// A one-line input box; nothing when it was cancelled.
    virtual std::optional<std::string> askText(std::string_view prompt, std::string_view title,
                                               std::string_view defaultText) = 0;
    /// The chosen file's full name; empty when cancelled.
    virtual std::string askFile(const FileDialogRequest& request) = 0;
    virtual void copyToClipboard(std::string_view text) = 0;
    /// Opens a link or document with its associated program.
    virtual void openLink(std::string_view target) = 0;

    /// Shows one of the program's windows by its name, such as "frmOption"; modal: returns when it was closed.
    virtual void showWindow(std::string_view name, bool modal) = 0;
    virtual void unloadWindow(std::string_view name) = 0;
    virtual bool isVisible(std::string_view name) const = 0;
    virtual void processPendingEvents() = 0;

    /// True once a critical message was shown or something could not be asked.
    bool hadFailure() const { return hadFailure_; }
    void noteFailure() { hadFailure_ = true; }
    void forgetFailure() { hadFailure_ = false; }

  protected:
    virtual void presentMessage(std::string_view text, std::string_view title, Icon icon) = 0;

  private:
    bool hadFailure_ = false;
};

Desktop& desktop();
/// `newDesktop` must outlive its use.
void setDesktop(Desktop& newDesktop);

/// A message box with the critical-stop icon.
void showCritical(std::string_view text, std::string_view title = "Brasquelin");

inline constexpr std::string_view errorTitle = "Brasquelin Error";

}  // namespace brasquelin
