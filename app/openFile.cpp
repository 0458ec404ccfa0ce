#include "app/openFile.h"

#include <utility>

#include "app/batchFile.h"
#include "engine/runProfile.h"
#include "platform/desktop.h"
#include "text/runTimeError.h"
#include "text/text.h"
#include "vars/loadPrompt.h"

namespace brasquelin {

Opening opening;

namespace {

/// True while a file is being run, however the run ends.
class Running {
  public:
    Running() { opening.running = true; }
    ~Running() { opening.running = false; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
};

/// The file named on the command line has been run: its jobs are executed and the program ends.
void executeAndEnd() {
    desktop().unloadWindow("frmWait");
    try {
        runBatchAndWait();
    } catch (const RunTimeError& error) {
        showCritical(error.report("\r\nWhile writting '" + batchFilePath() + "'"), errorTitle);
        return;
    }
    throw EndProgram(desktop().hadFailure() ? 1 : 0);
}

void runOpenedProfile(const std::string& path) {
    const Running running;
    if (runProfile(path, 1) && path == opening.currentFile) executeAndEnd();
}

void runOpenedLibrary(const std::string& path) {
    const Running running;
    if (runLibrary(path, functionArguments()) && path == opening.currentFile) executeAndEnd();
}

/// The waiting window's timer starts the run, so that the prompt closes and the screen repaints first.
void runThroughWaitWindow(std::function<void()> run) {
    if (!desktop().hasWindows() || desktop().isVisible("frmWait")) return run();
    opening.waitingRun = std::move(run);
    desktop().showWindow("frmWait", true);
}

OpenOptions optionsFor(const std::vector<std::string>& presets) {
    OpenOptions options;
    options.presets = presets;
    options.namedOnCommandLine = !opening.currentFile.empty();
    options.replaying = opening.replaying;
    return options;
}

void openProfile(const std::string& path, const std::vector<std::string>& presets) {
    OpenOptions options = optionsFor(presets);
    options.runAtOnce = [path] { runOpenedProfile(path); };
    options.confirmed = [path] { runThroughWaitWindow([path] { runOpenedProfile(path); }); };
    loadProfile(path, std::move(options));
}

void openLibrary(const std::string& path, const std::vector<std::string>& presets) {
    OpenOptions options = optionsFor(presets);
    options.confirmed = [path] { runOpenedLibrary(path); };
    loadFunction(path, std::move(options));
}

}  // namespace

void openFile(const std::string& path, const std::vector<std::string>& presets) {
    if (endsWithIgnoringCase(path, "bqp")) {
        openProfile(path, presets);
    } else if (endsWithIgnoringCase(path, "bqs")) {
        openLibrary(path, presets);
    }
}

void openPicked(const std::string& path) {
    if (opening.running) {
        desktop().showMessage("Another file is still being run.", "Brasquelin", Icon::exclamation);
        return;
    }
    try {
        openFile(path, {});
    } catch (const RunTimeError& error) {
        showCritical(error.reportWhileLoading(path), errorTitle);
    }
}

void runWaiting() {
    const auto run = std::exchange(opening.waitingRun, nullptr);
    if (run) run();
}

}  // namespace brasquelin
