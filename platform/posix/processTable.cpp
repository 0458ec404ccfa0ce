#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <set>
#include <string>
#include <vector>

#include "platform/childProcess.h"
#include "platform/clock.h"
#include "platform/posix/shellCommand.h"
#include "platform/posix/systemError.h"

extern char** environ;

namespace brasquelin {

namespace {

/// How children are started: in a group of their own, so that they end together. A child that may read the terminal
/// stays in the program's group, for the terminal stops all others that read it.
class SpawnAttributes {
  public:
    explicit SpawnAttributes(bool ownGroup) {
        posix_spawnattr_init(&attributes_);
        sigset_t defaults;
        sigemptyset(&defaults);
        sigaddset(&defaults, SIGPIPE);
        posix_spawnattr_setsigdefault(&attributes_, &defaults);
        int flags = POSIX_SPAWN_SETSIGDEF;
        if (ownGroup) flags |= POSIX_SPAWN_SETPGROUP;
        posix_spawnattr_setflags(&attributes_, static_cast<short>(flags));
    }
    ~SpawnAttributes() { posix_spawnattr_destroy(&attributes_); }
    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;
    const posix_spawnattr_t* get() const { return &attributes_; }

  private:
    posix_spawnattr_t attributes_{};
};

/// The children that have not been collected yet. Until then the system does not give their ids to anybody else.
class SystemProcessTable : public ProcessTable {
  public:
    std::uint32_t start(std::string_view command, WindowStyle style) override;
    bool isRunning(std::uint32_t processId) override;
    bool terminate(std::uint32_t processId) override;

  private:
    void collectEnded();
    bool endsWithin(std::uint32_t processId, pid_t target, std::uint32_t milliseconds);

    std::set<std::uint32_t> children_;
    bool ownGroups_ = isatty(STDIN_FILENO) == 0;
};

std::uint32_t SystemProcessTable::start(std::string_view command, WindowStyle /*style*/) {
    collectEnded();
    if (command.empty()) throw RunTimeError(ErrorNumber::invalidCall);
    std::vector<std::string> arguments = shellArguments(command);
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (auto& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    const SpawnAttributes attributes(ownGroups_);
    pid_t child = 0;
    const int error = posix_spawn(&child, "/bin/sh", nullptr, attributes.get(), pointers.data(), environ);
    if (error != 0) raise(error, FileUse::reading, "/bin/sh");
    const auto processId = static_cast<std::uint32_t>(child);
    children_.insert(processId);
    return processId;
}

bool SystemProcessTable::isRunning(std::uint32_t processId) {
    if (!children_.contains(processId)) return false;
    int status = 0;
    const pid_t collected = waitpid(static_cast<pid_t>(processId), &status, WNOHANG);
    if (collected == 0 || (collected < 0 && errno == EINTR)) return true;
    children_.erase(processId);
    return false;
}

bool SystemProcessTable::terminate(std::uint32_t processId) {
    constexpr std::uint32_t grace = 500;  // milliseconds to clean up in
    if (!isRunning(processId)) return false;
    const auto child = static_cast<pid_t>(processId);
    const pid_t target = ownGroups_ ? -child : child;
    if (kill(target, SIGTERM) != 0) return false;
    if (!endsWithin(processId, target, grace)) {
        kill(target, SIGKILL);
        endsWithin(processId, target, grace);
    }
    return true;
}

/// True once the child was collected and nothing is left of its group.
bool SystemProcessTable::endsWithin(std::uint32_t processId, pid_t target, std::uint32_t milliseconds) {
    constexpr std::uint32_t step = 10;
    for (std::uint32_t waited = 0;; waited += step) {
        const bool ended = !isRunning(processId) && (target > 0 || kill(target, 0) != 0);
        if (ended || waited >= milliseconds) return ended;
        clockInUse().sleep(step);
    }
}

void SystemProcessTable::collectEnded() {
    const std::vector<std::uint32_t> known(children_.begin(), children_.end());
    for (const auto processId : known) isRunning(processId);
}

}  // namespace

ProcessTable& systemProcessTable() {
    static SystemProcessTable table;
    return table;
}

}  // namespace brasquelin
