#include "app/startUp.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "app/batchFile.h"
#include "app/jobList.h"
#include "app/jobListEditing.h"
#include "app/keptJobs.h"
#include "app/openFile.h"
#include "config/configFile.h"
#include "config/registerFileTypes.h"
#include "editor/editorState.h"
#include "engine/basicFunction.h"
#include "engine/engineTables.h"
#include "engine/runProfile.h"
#include "platform/childProcess.h"
#include "platform/clock.h"
#include "platform/console/consoleDesktop.h"
#include "platform/listFile.h"
#include "platform/paths.h"
#include "platform/reporting.h"
#include "platform/standardStreams.h"
#include "platform/textFiles.h"
#include "text/substitution.h"
#include "text/text.h"
#include "vars/loadPrompt.h"
#include "vars/variableTables.h"

namespace brasquelin {

namespace {

/// A risky step: its error is told as one of loading this file.
template <typename Step>
void loading(const std::string& path, Step step) {
    try {
        step();
    } catch (const RunTimeError& error) {
        throw error.whollyAbout(path);
    }
}

/// The settings, before the command line is looked at.
void prepare(const std::string& commandLine, const std::function<void()>& detectBorders) {
    settings.startingUp = true;
    settings.commandLine = commandLine;
    registerFileTypes();
    loading(configFilePath(), [] { readConfig(configFilePath()); });
    engineTables.runCounter = std::string("0");
    if (detectBorders) detectBorders();
    settings.startingUp = false;
}

void openNamedFile(const std::string& commandLine) {
    FileArgument argument = parseFileArgument(commandLine);
    runState.currentFile = argument.path;
    openArgument(std::move(argument));
}

/// The first line of a message, without the line breaks of the others.
std::string inOneLine(std::string_view message) {
    return replaceAll(message, "\r\n", " ");
}

/// Why the file of a list line was not run; nothing when it was, and for a line that names neither a profile nor a
/// library, which is ignored on purpose.
std::optional<std::string> replayLine(std::string_view line) {
    FileArgument argument = parseFileArgument(argumentOfListLine(line));
    const std::size_t before = desktop().failures().size();
    runState.completed = false;
    const bool known = openArgument(std::move(argument));
    desktop().closePrompt();
    if (runState.completed || !known) return std::nullopt;
    if (desktop().failures().size() > before) return inOneLine(desktop().failures()[before]);
    return "It was cancelled.";
}

/// Keeps the waiting window alive without asking the toolkit after every line.
void showProgress() {
    constexpr std::uint64_t interval = 50;  // milliseconds
    static std::uint64_t lastShown = 0;
    const std::uint64_t now = clockInUse().tickCount();
    if (now - lastShown < interval) return;
    lastShown = now;
    desktop().processPendingEvents();
}

using SkippedLines = std::vector<std::string>;  // "line 3: ..."

/// The window may outlive the replay when an error ends it.
std::shared_ptr<ListProgress> showNewProgress(std::size_t total) {
    auto progress = std::make_shared<ListProgress>();
    progress->total = total;
    progress->cancel = [p = progress.get()] {
        p->cancelled = true;
        cancelChild();
    };
    desktop().showListProgress(progress);
    return progress;
}

/// Nothing when the user has cancelled it.
std::optional<SkippedLines> replayLines(ListFile& list) {
    SkippedLines skipped;
    runState.replaying = true;
    const auto progress = showNewProgress(list.lineCount());
    for (std::string line; !progress->cancelled && list.next(line); ++progress->done) {
        if (const auto reason = replayLine(line)) {
            skipped.push_back("line " + std::to_string(progress->done + 1) + ": " + *reason);
        }
        showProgress();
    }
    runState.replaying = false;
    desktop().closeWaitWindow();
    if (progress->cancelled) return std::nullopt;
    return skipped;
}

/// Standard error gets every line, the window as many as fit.
void tellSkipped(const std::string& listPath, const SkippedLines& skipped) {
    constexpr std::size_t mostShown = 20;
    if (skipped.empty()) return;
    const std::string list = "'" + listPath + "'";
    std::string shown = "Skipped in " + list + ":";
    for (std::size_t i = 0; i < skipped.size(); ++i) {
        writeMessage("Brasquelin", list + " " + skipped[i]);
        if (i < mostShown) shown.append("\r\n").append(skipped[i]);
    }
    if (skipped.size() > mostShown) shown += "\r\n... and " + std::to_string(skipped.size() - mostShown) + " more";
    if (desktop().hasWindows()) desktop().showMessage(shown, "Brasquelin", Icon::exclamation);
}

[[noreturn]] void replayList(const std::string& path) {
    std::optional<ListFile> list;
    loading(path, [&] { list.emplace(path); });
    const auto skipped = replayLines(*list);
    if (!skipped) {
        writeMessage("Brasquelin", "'" + path + "' was cancelled; nothing was executed.");
        throw EndProgram(1);
    }
    runBatchAndWait();
    tellSkipped(path, *skipped);
    throw EndProgram(desktop().hadFailure() ? 1 : 0);
}

void reportStartUpError(const RunTimeError& error) {
    report(error);
    settings.startingUp = false;
    runState.replaying = false;
    desktop().closeWaitWindow();
}

}  // namespace

void resetTables() {
    settings.reset();
    variableTables.reset();
    engineTables.reset();
    functionAction = {};
    editorState.reset();
    runState.reset();
    jobList.clear();
    jobHistory.clear();
    keptJobs.reset();
    forgetTextFiles();
    forgetUnseenForm();
    childProcessId = 0;
    setJobSink([](std::string_view line) { jobList.append(line); });
}

bool openArgument(FileArgument argument) {
    enterDirectoryOf(argument.path);
    return openFile(argument.path, std::move(argument.presets));
}

bool startUp(const std::string& commandLine, const std::function<void()>& detectBorders) {
    resetTables();
    try {
        prepare(commandLine, detectBorders);
        if (commandLine.empty()) return true;
        if (isListMode(commandLine)) replayList(listFilePath(commandLine));
        openNamedFile(commandLine);
        return true;
    } catch (const std::exception&) {
        reportStartUpError(currentRunTimeError());
        return false;
    }
}

int runWithoutWindows(const std::string& commandLine, std::string_view reason) {
    static ConsoleDesktop console;
    setDesktop(console);
    try {
        if (!commandLine.empty()) startUp(commandLine);
    } catch (const EndProgram& end) {
        return end.exitStatus();
    }
    // What failed has told that it needed a display; where there is one, it was not that.
    if (!console.hadFailure() || displayAvailable()) showCritical(reason);
    return 1;
}

void endLastChild() {
    killProcess(childProcessId);
}

}  // namespace brasquelin
