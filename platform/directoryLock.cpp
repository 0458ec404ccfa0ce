#include "platform/directoryLock.h"

#include <cstdlib>
#include <functional>
#include <string>
#include <utility>

#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/paths.h"
#include "platform/standardStreams.h"
#include "platform/systemLock.h"
#include "platform/waitingNotice.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

constexpr const char* coveredVariable = "BRASQUELIN_LOCKED";
constexpr std::uint64_t noticeAfter = 500;  // milliseconds
constexpr std::uint32_t pollInterval = 10;

int holders = 0;

std::string directoryKey() {
    return std::to_string(std::hash<std::string>()(programDirectory()));
}

/// True when the program that started this one holds the lock.
bool isCovered() {
    const char* covered = std::getenv(coveredVariable);
    return covered != nullptr && directoryKey() == covered;
}

/// Where there is no window for it, standard error tells.
void tellOnce(std::uint64_t waited, bool& told) {
    if (told || waited < noticeAfter) return;
    told = true;
    if (desktop().hasWindows()) return;
    writeMessage("Brasquelin", "Waiting for another start of the program in '" + programDirectory() + "'.");
}

/// Pending events may take and give back the lock themselves.
void waitForLock() {
    const std::uint64_t entry = clockInUse().tickCount();
    bool cancelled = false;
    bool told = false;
    WaitingNotice notice("Another start of the program is at work in '" + programDirectory() + "'.",
                         [&cancelled] { cancelled = true; });
    while (holders == 0 && !tryLockDirectory(programDirectory())) {
        desktop().processPendingEvents();
        clockInUse().sleep(pollInterval);
        notice.look();
        tellOnce(clockInUse().tickCount() - entry, told);
        if (cancelled) throw RunTimeError(ErrorNumber::userInterrupt, programDirectory());
    }
}

}  // namespace

DirectoryLock::DirectoryLock() {
    if (isCovered()) return;
    waitForLock();
    ++holders;
    held_ = true;
}

DirectoryLock::~DirectoryLock() {
    release();
}

void DirectoryLock::coverStartedPrograms() {
    if (!held_) return;
    coversStarted_ = true;
    setEnvironmentOfChildren(coveredVariable, directoryKey());
}

void DirectoryLock::release() {
    if (!std::exchange(held_, false)) return;
    if (std::exchange(coversStarted_, false)) setEnvironmentOfChildren(coveredVariable, {});
    if (--holders == 0) unlockDirectory();
}

}  // namespace brasquelin
