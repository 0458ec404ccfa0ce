#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/childProcess.h"
#include "platform/posix/endingSignals.h"
#include "platform/posix/shellCommand.h"
#include "platform/posix/spawn.h"
#include "platform/posix/terminalLoan.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

/// The children that have not been collected yet. Until then the system does not give their ids to anybody else.
class SystemProcessTable : public ProcessTable {
  public:
    std::uint32_t start(std::string_view command, WindowStyle style) override;
    std::uint32_t startToWaitFor(std::string_view command, WindowStyle style) override;
    bool isRunning(std::uint32_t processId) override;
    bool terminate(std::uint32_t processId) override;
    ProcessEnd endOf(std::uint32_t processId) override { return processId == lastEnded_ ? lastEnd_ : ProcessEnd(); }

  private:
    struct Child {
        bool ownGroup = false;
        bool waitedFor = false;
    };
    std::uint32_t spawn(std::string_view command, WindowStyle style, Child kind);
    void collectEnded();

    std::map<std::uint32_t, Child> children_;
    std::uint32_t lastEnded_ = 0;
    ProcessEnd lastEnd_;
};

/// Nobody waits, so the terminal is not lent: a child that may read it stays in the program's group.
std::uint32_t SystemProcessTable::start(std::string_view command, WindowStyle style) {
    return spawn(command, style, {isatty(STDIN_FILENO) == 0, false});
}

/// Always a group of its own, so that everything in it ends together.
std::uint32_t SystemProcessTable::startToWaitFor(std::string_view command, WindowStyle style) {
    return spawn(command, style, {true, true});
}

std::uint32_t SystemProcessTable::spawn(std::string_view command, WindowStyle style, Child kind) {
    collectEnded();
    if (command.empty()) throw RunTimeError(ErrorNumber::invalidCall);
    const bool shown = style == WindowStyle::ownWindow;
    std::vector<std::string> arguments = shown ? runWindowArguments(command) : shellArguments(command);
    const SignalHold hold;
    const bool takesTerminal = kind.waitedFor && ownsTerminal();
    Spawn spawn;
    spawn.withSignalMask(hold.before());
    if (kind.ownGroup) spawn.inOwnGroup();
    if (takesTerminal) spawn.takeTerminal();
    const pid_t child = spawn.start(std::move(arguments));
    if (kind.waitedFor) endWithProgram(child);
    if (takesTerminal) noteTerminalLent(child);
    const auto processId = static_cast<std::uint32_t>(child);
    children_[processId] = kind;
    return processId;
}

bool SystemProcessTable::isRunning(std::uint32_t processId) {
    const auto known = children_.find(processId);
    if (known == children_.end()) return false;
    const auto child = static_cast<pid_t>(processId);
    const bool waitedFor = known->second.waitedFor;
    int status = 0;
    {
        const SignalHold hold;
        const pid_t collected = waitpid(child, &status, waitedFor ? WNOHANG | WUNTRACED : WNOHANG);
        if (collected == 0 || (collected < 0 && errno == EINTR)) return true;
        const bool stopped = collected == child && WIFSTOPPED(status);
        if (!stopped && waitedFor) endWithProgram(0);
        if (!stopped) children_.erase(known);
    }
    if (WIFSTOPPED(status)) stopWithChild(child, WSTOPSIG(status));
    if (WIFSTOPPED(status)) return true;
    lastEnded_ = processId;
    lastEnd_ = {WIFEXITED(status) ? WEXITSTATUS(status) : 0, WIFSIGNALED(status) ? WTERMSIG(status) : 0};
    endTerminalLoan(child, status);
    return false;
}

bool SystemProcessTable::terminate(std::uint32_t processId) {
    if (!isRunning(processId)) return false;
    const SignalHold hold;
    endChild(static_cast<pid_t>(processId), children_[processId].ownGroup);
    if (children_[processId].waitedFor) endWithProgram(0);
    children_.erase(processId);
    takeTerminalBack();
    return true;
}

void SystemProcessTable::collectEnded() {
    std::vector<std::uint32_t> known;
    for (const auto& [processId, child] : children_) known.push_back(processId);
    for (const auto processId : known) isRunning(processId);
}

}  // namespace

ProcessTable& systemProcessTable() {
    static SystemProcessTable table;
    return table;
}

}  // namespace brasquelin
