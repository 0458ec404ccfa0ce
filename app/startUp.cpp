#include "app/startUp.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "app/batchFile.h"
#include "app/commandLine.h"
#include "app/jobList.h"
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
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/reporting.h"
#include "platform/textFiles.h"
#include "text/substitution.h"
#include "text/text.h"
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

/// A path without a directory part leaves the current directory alone; "/x" means the root.
void enterDirectoryOf(const std::string& path) {
    const auto separator = path.find_last_of("\\/");
    if (separator == std::string::npos) return;
    const std::string directory = separator == 0 ? path.substr(0, 1) : path.substr(0, separator);
    changeDirectory(directory);
}

void openNamedFile(const std::string& commandLine) {
    const FileArgument argument = parseFileArgument(commandLine);
    runState.currentFile = argument.path;
    loading(argument.path, [&] { enterDirectoryOf(argument.path); });
    openFile(argument.path, argument.presets);
}

/// The first line of a message, without the line breaks of the others.
std::string inOneLine(std::string_view message) {
    return replaceAll(message, "\r\n", " ");
}

/// Why the file of a list line was not run; nothing when it was, and for a line that names no file.
std::optional<std::string> replayLine(std::string_view line) {
    const FileArgument argument = parseFileArgument(argumentOfListLine(line));
    const std::size_t before = desktop().failures().size();
    runState.completed = false;
    loading(argument.path, [&] { enterDirectoryOf(argument.path); });
    const bool known = openFile(argument.path, argument.presets);
    desktop().closePrompt();
    if (runState.completed || argument.path.empty()) return std::nullopt;
    if (desktop().failures().size() > before) return inOneLine(desktop().failures()[before]);
    return known ? "It was cancelled." : "'" + argument.path + "' is no profile and no library.";
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

/// What became of a list.
struct Replay {
    bool cancelled = false;
    std::vector<std::string> skipped;  // "line 3: ..."
};

Replay replayLines(const std::vector<std::string>& lines) {
    Replay replay;
    ListProgress progress;
    progress.total = lines.size();
    progress.cancel = [&replay] {
        replay.cancelled = true;
        cancelChild();
    };
    runState.replaying = true;
    desktop().showListProgress(progress);
    for (; progress.done < lines.size() && !replay.cancelled; ++progress.done) {
        if (const auto reason = replayLine(lines[progress.done])) {
            replay.skipped.push_back("line " + std::to_string(progress.done + 1) + ": " + *reason);
        }
        showProgress();
    }
    runState.replaying = false;
    desktop().closeWaitWindow();
    return replay;
}

/// Standard error gets every line, the window as many as fit.
void tellSkipped(const std::string& listPath, const std::vector<std::string>& skipped) {
    constexpr std::size_t mostShown = 20;
    if (skipped.empty()) return;
    std::string text = "Skipped in '" + listPath + "':";
    for (const auto& line : skipped) writeToStandardError("Brasquelin", "'" + listPath + "' " + line);
    if (!desktop().hasWindows()) return;
    for (std::size_t i = 0; i < std::min(mostShown, skipped.size()); ++i) text += "\r\n" + skipped[i];
    if (skipped.size() > mostShown) text += "\r\n... and " + std::to_string(skipped.size() - mostShown) + " more";
    desktop().showMessage(text, "Brasquelin", Icon::exclamation);
}

[[noreturn]] void replayList(const std::string& path) {
    TextFile list;
    loading(path, [&] { list = readOemTextFile(path); });
    const Replay replay = replayLines(list.lines);
    if (replay.cancelled) {
        writeToStandardError("Brasquelin", "'" + path + "' was cancelled; nothing was executed.");
        throw EndProgram(1);
    }
    runBatchAndWait();
    tellSkipped(path, replay.skipped);
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
    forgetTextFiles();
    childProcessId = 0;
    setJobSink([](std::string line) { jobList.append(std::move(line)); });
}

bool startUp(const std::string& commandLine, const std::function<void()>& detectBorders) {
    resetTables();
    try {
        prepare(commandLine, detectBorders);
        if (commandLine.empty()) return true;
        if (isListMode(commandLine)) replayList(listFilePath(commandLine));
        openNamedFile(commandLine);
        return true;
    } catch (const RunTimeError& error) {
        reportStartUpError(error);
        return false;
    }
}

int runWithoutDisplay(const std::string& commandLine) {
    static ConsoleDesktop console;
    setDesktop(console);
    constexpr std::string_view needsDisplay = "The windows need a display, and there is none (DISPLAY is not set).";
    if (commandLine.empty()) {
        showCritical(needsDisplay);
        return 1;
    }
    try {
        startUp(commandLine);
    } catch (const EndProgram& end) {
        return end.exitStatus();
    }
    if (!console.hadFailure()) showCritical(needsDisplay);
    return 1;
}

void endLastChild() {
    killProcess(childProcessId);
}

}  // namespace brasquelin
