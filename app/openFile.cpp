#include "app/openFile.h"

#include <utility>

#include "app/batchFile.h"
#include "engine/runProfile.h"
#include "platform/desktop.h"
#include "platform/reporting.h"
#include "text/fileFormat.h"
#include "text/runTimeError.h"
#include "vars/loadPrompt.h"

namespace brasquelin {

RunState runState;

namespace {

/// True while a file is being run, however the run ends.
class Running {
  public:
    explicit Running(const std::string& path) {
        runState.running = true;
        runState.runningFile = path;
        runState.completed = false;
    }
    ~Running() { runState.running = false; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
};

/// The file named on the command line has been run: its jobs are executed and the program ends.
void executeAndEnd() {
    desktop().closeWaitWindow();
    if (reporting(batchFilePath(), runBatchAndWait)) throw EndProgram(desktop().hadFailure() ? 1 : 0);
}

void finishRun(const std::string& path, bool completed) {
    runState.completed = completed;
    if (completed && path == runState.currentFile) executeAndEnd();
}

void runOpenedProfile(const std::string& path) {
    const Running running(path);
    finishRun(path, runProfile(path, 1));
}

void runOpenedLibrary(const std::string& path, const std::vector<std::string>& arguments) {
    const Running running(path);
    finishRun(path, runLibrary(path, arguments));
}

/// The waiting window's timer starts the run, so that the prompt closes and the screen repaints first. While a list is
/// replayed that window is up already.
void runConfirmedProfile(const std::string& path) {
    if (runState.replaying) return runOpenedProfile(path);
    desktop().runBehindWaitWindow([path] { runOpenedProfile(path); });
}

PromptOptions optionsFor(std::vector<std::string> presets) {
    PromptOptions options;
    options.presets = std::move(presets);
    options.namedOnCommandLine = !runState.currentFile.empty();
    options.replaying = runState.replaying;
    options.mayConfirm = mayOpen;
    return options;
}

void openProfile(const std::string& path, std::vector<std::string> presets) {
    PromptOptions options = optionsFor(std::move(presets));
    options.runAtOnce = [&path] { runOpenedProfile(path); };
    options.confirmed = [path](const auto& /*values*/) { runConfirmedProfile(path); };
    loadProfile(path, std::move(options));
}

void openLibrary(const std::string& path, std::vector<std::string> presets) {
    PromptOptions options = optionsFor(std::move(presets));
    options.confirmed = [path](const auto& values) { runOpenedLibrary(path, values); };
    loadFunction(path, std::move(options));
}

}  // namespace

bool mayOpen() {
    if (runState.running) desktop().showMessage("Another file is still being run.", "Brasquelin", Icon::exclamation);
    return !runState.running;
}

bool openFile(const std::string& path, std::vector<std::string> presets) {
    const FileKind kind = kindOfFile(path);
    if (kind == FileKind::profile) {
        openProfile(path, std::move(presets));
    } else if (kind == FileKind::library) {
        openLibrary(path, std::move(presets));
    } else {
        return false;
    }
    return true;
}

bool openPicked(const std::string& path) {
    if (!mayOpen()) return false;
    reporting(path, [&] { openFile(path, {}); });
    return true;
}

}  // namespace brasquelin
