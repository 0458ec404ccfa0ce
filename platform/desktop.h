// What the program asks of the desktop: boxes, dialogs, its windows, events.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

struct PromptForm;

enum class Icon { none, information, exclamation, critical };
enum class FileDialogMode { open, save };

struct FileDialogRequest {
    FileDialogMode mode = FileDialogMode::open;
    std::string title;
    std::string filter;     // "Text files|*.txt", pairs separated by "|"
    std::string startName;  // full name to start from; may be empty
    std::string note = {};  // told in the dialog; may be empty
};

/// The windows that are shown without arguments.
enum class ProgramWindow { main, addProfile, addFunction, options, about, createProfile, addVar, addCommand, preview };

/// The window's own name, such as "frmMain".
std::string_view nameOf(ProgramWindow window);

/// What the window `inputForm` asks.
struct ValueQuestion {
    std::string prompt;
    std::string defaultText;
    std::vector<std::string> references = {};  // offered in a menu; an empty one does not open
    std::string about = {};                    // what may be said of the value, in lines
    std::size_t number = 0;                    // its place among several that are asked for one after another
    std::size_t count = 0;                     // of those
};
/// `stopped`: no further one of several is to be asked for.
enum class ValueEnd { given, cancelled, stopped };
struct ValueAnswer {
    ValueEnd end = ValueEnd::cancelled;
    std::string text = {};
};

/// How far a list has been worked off. The waiting window looks into it.
struct ListProgress {
    std::size_t done = 0;
    std::size_t total = 0;
    bool cancelled = false;
    std::function<void()> cancel;  // the user has had enough
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
    /// The same for a line that is changed rather than replaced: nothing of it is selected.
    virtual std::optional<std::string> askEdit(std::string_view prompt, std::string_view title, std::string_view line) {
        return askText(prompt, title, line);
    }
    /// The chosen file's full name; empty when cancelled.
    virtual std::string askFile(const FileDialogRequest& request) = 0;
    virtual void copyToClipboard(std::string_view text) = 0;
    /// Empty when the clipboard holds no text.
    virtual std::string clipboardText() = 0;
    /// Opens a link or document with its associated program.
    virtual void openLink(std::string_view target) = 0;

    /// Modal: returns when the window was closed.
    virtual void showWindow(ProgramWindow window, bool modal) = 0;
    virtual void unloadWindow(ProgramWindow window) = 0;
    virtual bool isVisible(ProgramWindow window) const = 0;

    /// Asks for one text with references at hand.
    virtual ValueAnswer askValue(const ValueQuestion& question) = 0;

    /// Shows a prompt (`frmVarProfile` or `frmVarFunction`) in place of one that is up. Modal: returns when it was
    /// closed.
    virtual void showPrompt(std::shared_ptr<PromptForm> form, bool modal) = 0;
    /// The prompt that is up goes, as by Cancel.
    virtual void closePrompt() = 0;

    /// Shows `frmWait`, whose timer hides it and starts the run. Returns when the run has ended.
    virtual void runBehindWaitWindow(std::function<void()> run) = 0;
    /// Shows `frmWait` modelessly with the progress of a list, until closeWaitWindow.
    virtual void showListProgress(std::shared_ptr<ListProgress> progress) = 0;
    virtual void closeWaitWindow() = 0;

    /// A small window tells what is running, with a Cancel that calls `cancel`; another call replaces the text.
    virtual void showRunning(const std::string& what, std::function<void()> cancel) = 0;
    virtual void hideRunning() = 0;

    virtual void processPendingEvents() = 0;

    /// The critical messages that were shown and what could not be asked, in order.
    const std::vector<std::string>& failures() const { return failures_; }
    bool hadFailure() const { return !failures_.empty(); }
    void noteFailure(std::string_view text) { failures_.emplace_back(text); }

  protected:
    virtual void presentMessage(std::string_view text, std::string_view title, Icon icon) = 0;

  private:
    std::vector<std::string> failures_;
};

Desktop& desktop();
/// `newDesktop` must outlive its use.
void setDesktop(Desktop& newDesktop);

/// A message box with the critical-stop icon.
void showCritical(std::string_view text, std::string_view title = "Brasquelin");

inline constexpr std::string_view errorTitle = "Brasquelin Error";

}  // namespace brasquelin
