// A dry run: what files would put into the batch file, without a trace outside the program's own tables.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "check/keptTables.h"
#include "platform/console/consoleDesktop.h"
#include "platform/onlooker.h"
#include "platform/standardStreams.h"

namespace brasquelin {

/// A finished line.
struct DryRunLine {
    std::string text;
    bool needsPlugin = false;  // it holds what a plugin that was not run may know
};

/// Takes a message: on standard error, unless somebody else wants it.
using TakeMessage = std::function<void(std::string_view title, std::string_view text)>;

/// While it lives it takes the finished lines and every message, starts nothing (plugins and checks only when told so),
/// writes nothing and asks nothing. The tables are as before when it goes.
class DryRun : public Onlooker, public ConsoleDesktop {
  public:
    explicit DryRun(bool withPlugins, TakeMessage takeMessage = writeMessage);
    ~DryRun() override;
    DryRun(const DryRun&) = delete;
    DryRun& operator=(const DryRun&) = delete;

    /// Tells that another file begins. What was asked and what was not run counts by file.
    void beginFile();

    /// The finished lines. A file that would have to ask adds none.
    const std::vector<DryRunLine>& lines() const { return lines_; }

    /// True when a plugin or check of the file in hand was not run.
    bool skippedProgram() const { return skippedProgram_; }

    /// Tells which references are left because plugins were not run.
    void tellLeft();

    // What the run asks of it
    bool mayRunProgram(std::string_view path) override;
    bool mayWrite() override { return false; }
    bool mayConfirm() override { return !asked_; }
    bool isUnknown(std::string_view number, const SourceLine& place) override;

    /// A prompt counts as one that may be shown, so that its rows are told one by one.
    bool hasWindows() const override { return true; }
    void showPrompt(std::shared_ptr<PromptForm> form, bool modal) override;
    std::optional<std::string> askText(std::string_view prompt, std::string_view title,
                                       std::string_view defaultText) override;
    std::string askFile(const FileDialogRequest& request) override;

    // A plugin that runs is shown and ended as ever.
    void showRunning(const std::string& what, std::function<void()> cancel) override;
    void hideRunning() override { desktopBefore_.hideRunning(); }
    void processPendingEvents() override { desktopBefore_.processPendingEvents(); }

  protected:
    void presentMessage(std::string_view text, std::string_view title, Icon icon) override;
    void tell(const std::string& text) { takeMessage_("Brasquelin", text); }

  private:
    void take(std::string line);
    void tellAsked(std::string_view about);

    bool withPlugins_;
    KeptTables kept_;
    LookingOn lookingOn_;
    Desktop& desktopBefore_;
    TakeMessage takeMessage_;
    std::vector<DryRunLine> lines_;
    bool asked_ = false;           // by the file in hand
    bool skippedProgram_ = false;  // likewise
    std::set<std::string, std::less<>> skipped_;
    std::set<std::string, std::less<>> left_;
    std::set<std::string, std::less<>> unknownLoops_;
};

}  // namespace brasquelin
