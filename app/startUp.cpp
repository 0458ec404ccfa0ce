#include "app/startUp.h"

#include <string_view>

#include "app/batchFile.h"
#include "app/commandLine.h"
#include "app/jobList.h"
#include "app/openFile.h"
#include "config/configFile.h"
#include "config/registerFileTypes.h"
#include "editor/editorState.h"
#include "editor/valueInput.h"
#include "engine/basicFunction.h"
#include "engine/engineTables.h"
#include "engine/runProfile.h"
#include "platform/childProcess.h"
#include "platform/clock.h"
#include "platform/console/consoleDesktop.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/substitution.h"
#include "vars/loadPrompt.h"
#include "vars/variableTables.h"

namespace brasquelin {

namespace {

/// What the start-up error report appends to an error.
std::string errorContext;

std::string contextOf(std::string_view doing, std::string_view path) {
    return "\r\nWhile " + std::string(doing) + " '" + std::string(path) + "'";
}

/// Sets the error context for one risky step and clears it when the step has succeeded.
template <typename Step>
void inContext(std::string context, Step step) {
    errorContext = std::move(context);
    step();
    errorContext.clear();
}

/// The settings, before the command line is looked at.
void prepare(const std::string& commandLine, const std::function<void()>& detectBorders) {
    settings.startingUp = true;
    settings.commandLine = commandLine;
    registerFileTypes();
    inContext(contextOf("loading", configFilePath()), [] { readConfig(configFilePath()); });
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
    opening.currentFile = argument.path;
    inContext(contextOf("loading", argument.path), [&] { enterDirectoryOf(argument.path); });
    openFile(argument.path, argument.presets);
}

void replayLine(std::string_view line) {
    const FileArgument argument = parseFileArgument(argumentOfListLine(line));
    inContext(contextOf("loading", argument.path), [&] { enterDirectoryOf(argument.path); });
    openFile(argument.path, argument.presets);
    desktop().unloadWindow("frmVarProfile");
    desktop().unloadWindow("frmVarFunction");
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

void replayLines(const std::vector<std::string>& lines) {
    opening.replaying = true;
    opening.toReplay = lines.size();
    if (desktop().hasWindows()) desktop().showWindow("frmWait", false);
    for (const auto& line : lines) {
        replayLine(line);
        ++opening.replayed;
        showProgress();
    }
    opening.replaying = false;
    desktop().unloadWindow("frmWait");
}

[[noreturn]] void replayList(const std::string& path) {
    TextFile list;
    inContext(contextOf("loading", path), [&] { list = readOemTextFile(path); });
    replayLines(list.lines);
    inContext(contextOf("writting", batchFilePath()), runBatchAndWait);
    throw EndProgram(desktop().hadFailure() ? 1 : 0);
}

/// A step without a context of its own is told by the file that the error names.
void reportStartUpError(const RunTimeError& error) {
    const bool tellsFile = errorContext.empty() && !error.path().empty();
    if (error.line() > 0 && !tellsFile) errorContext += " at line " + std::to_string(error.line());
    showCritical(tellsFile ? error.reportWhileLoading({}) : error.report(errorContext), errorTitle);
    errorContext.clear();
    settings.startingUp = false;
    opening.replaying = false;
    desktop().unloadWindow("frmWait");
}

}  // namespace

void resetTables() {
    settings.reset();
    variableTables.reset();
    engineTables.reset();
    functionAction = {};
    resetPrompts();
    editorState.reset();
    valueInput = {};
    opening.reset();
    jobList.clear();
    forgetTextFiles();
    errorContext.clear();
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
