#include "platform/posix/terminalLoan.h"

#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>

namespace brasquelin {

namespace {

std::atomic<pid_t> borrower{0};

/// The system would stop a group that does this from behind.
void putInFront(pid_t group) {
    sigset_t held;
    sigset_t before;
    sigemptyset(&held);
    sigaddset(&held, SIGTTOU);
    pthread_sigmask(SIG_BLOCK, &held, &before);
    tcsetpgrp(STDIN_FILENO, group);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

void lendTerminal(pid_t group) {
    if (!ownsTerminal()) return;
    putInFront(group);
    borrower = group;
}

/// True when no shell is left that could continue the program.
bool isAbandoned() {
    return getsid(getppid()) != getsid(0);
}

}  // namespace

bool ownsTerminal() {
    return tcgetpgrp(STDIN_FILENO) == getpgrp();
}

void noteTerminalLent(pid_t group) {
    borrower = group;
}

void takeTerminalBack() {
    if (borrower.exchange(0) != 0) putInFront(getpgrp());
}

void stopWithChild(pid_t group, int signal) {
    if (signal == SIGSTOP) return;  // somebody's own wish
    if (!ownsTerminal()) {
        takeTerminalBack();
        const bool hopeless = signal != SIGTSTP && isAbandoned();
        kill(hopeless ? -group : 0, hopeless ? SIGHUP : signal);
    }
    lendTerminal(group);
    kill(-group, SIGCONT);
}

void endTerminalLoan(pid_t group, int waitStatus) {
    if (borrower != group) return;
    takeTerminalBack();
    const int signal = WIFSIGNALED(waitStatus) ? WTERMSIG(waitStatus) : 0;
    if (signal != SIGINT && signal != SIGQUIT && signal != SIGHUP) return;
    kill(-group, SIGTERM);  // what it left in the background
    kill(0, signal);
}

}  // namespace brasquelin
