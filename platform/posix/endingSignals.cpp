#include "platform/posix/endingSignals.h"

#include <poll.h>
#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>

#include "platform/interruption.h"
#include "platform/posix/terminalLoan.h"

namespace brasquelin {

namespace {

constexpr std::array<int, 3> endingSignals{SIGTERM, SIGINT, SIGHUP};

std::atomic<pid_t> endingGroup{0};
pthread_t mainThread;
std::atomic<bool> onlyNoted{false};
std::atomic<bool> interrupted{false};

/// True once the child was collected and nothing is left of its group.
bool endsSoon(pid_t child, pid_t target) {
    constexpr int tries = 50;
    constexpr int step = 10;  // milliseconds
    for (int i = 0; i < tries; ++i) {
        const bool ended = waitpid(child, nullptr, WNOHANG) != 0;
        if (ended && (target > 0 || kill(target, 0) != 0)) return true;
        poll(nullptr, 0, step);
    }
    return false;
}

/// Only the main thread holds signals back; the toolkit's threads pass theirs on to it.
void endProgram(int signal) {
    if (pthread_equal(pthread_self(), mainThread) == 0) {
        pthread_kill(mainThread, signal);
        return;
    }
    interrupted = true;
    if (onlyNoted) return;
    if (const pid_t group = endingGroup.exchange(0); group != 0) endChild(group, true);
    takeTerminalBack();
    struct sigaction byDefault {};
    byDefault.sa_handler = SIG_DFL;
    sigaction(signal, &byDefault, nullptr);
    raise(signal);  // takes effect when this returns
}

/// A signal that the program was told to ignore stays ignored.
void install(int signal) {
    struct sigaction known {};
    if (sigaction(signal, nullptr, &known) != 0 || known.sa_handler == SIG_IGN) return;
    struct sigaction action {};
    action.sa_handler = endProgram;
    action.sa_flags = SA_RESTART;
    for (const int other : endingSignals) sigaddset(&action.sa_mask, other);
    sigaction(signal, &action, nullptr);
}

bool installAll() {
    mainThread = pthread_self();
    for (const int signal : endingSignals) install(signal);
    return true;
}

}  // namespace

SignalHold::SignalHold() {
    [[maybe_unused]] static const bool installed = installAll();
    sigset_t held;
    sigemptyset(&held);
    for (const int signal : endingSignals) sigaddset(&held, signal);
    pthread_sigmask(SIG_BLOCK, &held, &before_);
}

SignalHold::~SignalHold() {
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

void noteInterruption() {
    const SignalHold hold;
    onlyNoted = true;
    struct sigaction ignored {};
    ignored.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &ignored, nullptr);
}

bool wasInterrupted() {
    return interrupted;
}

void endWithProgram(pid_t group) {
    endingGroup = group;
}

void endChild(pid_t child, bool withGroup) {
    const int error = errno;
    const pid_t target = withGroup ? -child : child;
    kill(target, SIGTERM);
    kill(target, SIGCONT);  // one that was stopped would not notice
    if (!endsSoon(child, target)) {
        kill(target, SIGKILL);
        endsSoon(child, target);
    }
    errno = error;
}

}  // namespace brasquelin
