#include "platform/childProcess.h"

#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/textFiles.h"

namespace brasquelin {

std::uint32_t childProcessId = 0;

namespace {

constexpr std::uint32_t firstWait = 1000;  // milliseconds
constexpr std::uint32_t pollInterval = 100;
constexpr std::uint32_t eventInterval = 10;  // keeps a busy wait from using up a processor

ProcessTable* replacement = nullptr;

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

void shellAndWait(std::string_view command, WindowStyle style) {
    const std::uint32_t processId = startCommand(command, style);
    childProcessId = processId;
    waitMilliseconds(firstWait);
    do {
        desktop().processPendingEvents();
        clockInUse().sleep(pollInterval);
    } while (processTable().isRunning(processId));
    forgetTextFiles();
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
