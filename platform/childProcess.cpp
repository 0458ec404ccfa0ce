#include "platform/childProcess.h"

#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/textFiles.h"
#include "platform/waitingNotice.h"

namespace brasquelin {

std::uint32_t childProcessId = 0;

namespace {

constexpr std::uint32_t firstWait = 1000;  // milliseconds; half of it is the patience before the notice
constexpr std::uint32_t pollInterval = 100;
constexpr std::uint32_t eventInterval = 10;  // keeps a busy wait from using up a processor

ProcessTable* replacement = nullptr;
bool cancelled = false;

}  // namespace

ProcessTable& processTable() {
    return replacement != nullptr ? *replacement : systemProcessTable();
}

void setProcessTable(ProcessTable* table) {
    replacement = table;
}

std::uint32_t startCommand(std::string_view command, WindowStyle style) {
    const std::uint32_t processId = processTable().start(command, style);
    forgetTextFiles();
    return processId;
}

void shellAndWait(std::string_view command, WindowStyle style, std::string_view what) {
    awaitEnd(startToWaitFor(command, style), what);
}

std::uint32_t startToWaitFor(std::string_view command, WindowStyle style) {
    childProcessId = processTable().startToWaitFor(command, style);
    cancelled = false;
    forgetTextFiles();
    return childProcessId;
}

void awaitEnd(std::uint32_t processId, std::string_view what) {
    WaitingNotice notice(std::string(what) + " is running.", cancelChild);
    waitMilliseconds(firstWait / 2);
    if (processTable().isRunning(processId)) notice.look();
    waitMilliseconds(firstWait / 2);
    do {
        desktop().processPendingEvents();
        clockInUse().sleep(pollInterval);
    } while (processTable().isRunning(processId));
    forgetTextFiles();
}

void cancelChild() {
    cancelled = killProcess(childProcessId);
}

bool childCancelled() {
    return cancelled;
}

bool killProcess(std::uint32_t processId, std::uintptr_t windowHandle) {
    if (windowHandle != 0) processId = processTable().ownerOf(windowHandle);
    return processId != 0 && processTable().terminate(processId);
}

void waitMilliseconds(std::uint32_t milliseconds) {
    const std::uint64_t entry = clockInUse().tickCount();
    while (clockInUse().tickCount() - entry <= milliseconds) {
        desktop().processPendingEvents();
        clockInUse().sleep(eventInterval);
    }
}

}  // namespace brasquelin
