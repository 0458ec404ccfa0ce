#include "app/batchFile.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "app/jobList.h"
#include "app/jobListEditing.h"
#include "config/configFile.h"
#include "platform/childProcess.h"
#include "platform/clock.h"
#include "platform/codePages.h"
#include "platform/desktop.h"
#include "platform/directoryLock.h"
#include "platform/fileOpenWatch.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/standardStreams.h"
#include "text/raised.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

bool starting = false;  // while pending events are processed

/// `betweenLauncherAndFile` separates a configured launcher from the batch file.
std::string batchCommand(std::string_view betweenLauncherAndFile) {
    if (settings.shellExec.empty()) return batchFilePath();
    return settings.shellExec + std::string(betweenLauncherAndFile) + batchFilePath();
}

/// Whoever has executed from a window or was asked in one sees the jobs run in one, unless a terminal shows them.
WindowStyle styleOfCommands() {
    const bool seen = desktop().isVisible(ProgramWindow::main) && !isTerminal(StandardStream::output);
    return seen ? WindowStyle::ownWindow : WindowStyle::normalWithFocus;
}

WindowStyle styleOfBatch() {
    return settings.shellExec.empty() ? styleOfCommands() : WindowStyle::normalWithFocus;
}

/// A start of its own, for the file is shared by all starts in this directory.
class BatchStart {
  public:
    BatchStart() {
        writeBatchFile();
        watch_.emplace(batchFilePath());
        if (!watch_->canTell()) lock_.coverStartedPrograms();
    }

    /// The next start may write its file once the runner of this one has it open. Where that cannot be seen, a runner
    /// that is waited for keeps the lock to its end.
    void letOthersIn(std::uint32_t processId, bool waitedFor) {
        if (waitedFor && !watch_->canTell()) return;
        holdUntilOpened(processId);
        lock_.release();
    }

    /// Raises what kept the runner from opening the file. The codes with which it ends later are its commands' own.
    void requireStarted(std::uint32_t processId) {
        const ProcessEnd end = processTable().endOf(processId);
        if (!watch_->canTell() || watch_->wasOpened() || end.exitCode == 0) return;
        if (settings.shellExec.empty()) throw RunTimeError(ErrorNumber::pathFileAccess, batchFilePath());
        if (end.exitCode == 127) throw RunTimeError(ErrorNumber::fileNotFound, settings.shellExec);
        if (end.exitCode == 126) throw RunTimeError(ErrorNumber::permissionDenied, settings.shellExec);
    }

  private:
    /// A launcher may hand the file to a program that runs already, or never open it.
    void holdUntilOpened(std::uint32_t processId) {
        constexpr std::uint64_t longest = 5000;  // milliseconds
        constexpr std::uint64_t blind = 1000;
        constexpr std::uint32_t step = 10;
        const std::uint64_t entry = clockInUse().tickCount();
        std::uint64_t limit = watch_->canTell() ? longest : blind;
        while (!watch_->wasOpened()) {
            const std::uint64_t waited = clockInUse().tickCount() - entry;
            if (waited > limit) return;
            if (!processTable().isRunning(processId)) limit = std::min(limit, blind);
            desktop().processPendingEvents();
            clockInUse().sleep(step);
        }
    }

    DirectoryLock lock_;
    std::optional<FileOpenWatch> watch_;
};

void tellSignal(std::uint32_t processId) {
    const int signal = processTable().endOf(processId).signal;
    if (signal == 0) return;
    showCritical("'" + batchFilePath() + "'\r\nThe batch was ended by signal " + std::to_string(signal) + ".",
                 errorTitle);
}

void runAndWait() {
    BatchStart batch;
    const std::uint32_t processId = startToWaitFor(batchCommand(" "), styleOfBatch());
    batch.letOthersIn(processId, true);
    awaitEnd(processId, "The job list");
    if (childCancelled()) throw EndProgram(1);
    batch.requireStarted(processId);
    tellSignal(processId);
}

}  // namespace

std::string batchFilePath() {
    return joinPath(exeDirectory(), "brasquelin.bat");
}

void writeBatchFile() {
    constexpr std::size_t pieceBytes = 1U << 14U;
    writeInPieces(batchFilePath(), [](const TakeBytes& take) {
        std::string piece;
        for (std::size_t job = 0; job < jobList.size(); ++job) {
            piece.append(jobList.line(job)).append("\r\n");
            if (piece.size() < pieceBytes) continue;
            take(encodeOem(piece));
            piece.clear();
        }
        take(encodeOem(piece));
    });
}

void runBatchAndWait() {
    try {
        runAndWait();
    } catch (const RunTimeError& error) {
        const bool other = !error.path().empty() && error.path() != batchFilePath();
        const RunTimeError told = other ? error.because("'" + error.path() + "'") : error;
        throw told.whollyAbout(batchFilePath()).ofWriting();
    }
}

void executeLine(std::optional<std::size_t> selected) {
    startCommand(selected ? jobList.line(*selected) : std::string_view(), styleOfCommands());
}

void executeJobList() {
    if (jobList.empty()) {
        desktop().showMessage("Joblist empty !", "Error", Icon::exclamation);
        return;
    }
    if (starting) return;  // a second click
    const Raised whileStarting(starting);
    BatchStart batch;
    // The word is the launcher's title.
    const std::uint32_t processId = startCommand(batchCommand(" Brasquelin "), styleOfBatch());
    batch.letOthersIn(processId, false);
    batch.requireStarted(processId);
    throw EndProgram(0);
}

bool batchIsStarting() {
    return starting;
}

void clearJobList() {
    clearJobs();
}

}  // namespace brasquelin
