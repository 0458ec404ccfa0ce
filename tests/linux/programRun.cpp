#include "linux/programRun.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "support/becomesTrue.h"

namespace brasquelin {

namespace {

/// The calling process becomes a shell that does this in the program's directory. Its data are of its own, too.
[[noreturn]] void becomeShell(const ProgramRun& program, const std::string& script) {
    const std::string directory = utf8(program.path());
    if (chdir(directory.c_str()) != 0) _exit(99);
    for (const int sent : {SIGHUP, SIGINT, SIGTERM}) signal(sent, SIG_DFL);  // nohup's children ignore some
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    setenv("HOME", directory.c_str(), 1);
    setenv("XDG_DATA_HOME", (directory + "/data").c_str(), 1);
    // The real tools for the file types would go on working in the directory while it is removed.
    setenv("PATH", (directory + "/bin:" + std::getenv("PATH")).c_str(), 1);
    execl("/bin/sh", "sh", "-c", script.c_str(), nullptr);
    _exit(99);
}

pid_t startShell(const ProgramRun& program, const std::string& script) {
    const pid_t child = fork();
    if (child != 0) return child;
    dup2(open("/dev/null", O_RDONLY), 0);
    int descriptor = 1;
    for (const char* name : {"out.txt", "err.txt"}) {
        dup2(open((program / name).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644), descriptor++);
    }
    becomeShell(program, script);
}

}  // namespace

LinuxRun::LinuxRun() {
    for (const char* tool : {"bin/update-mime-database", "bin/update-desktop-database"}) {
        std::filesystem::permissions(write(tool, "#!/bin/sh\n"), std::filesystem::perms::owner_all);
    }
}

LinuxRun::~LinuxRun() {
    if (terminal_ >= 0) close(terminal_);
}

int LinuxRun::runShell(const std::string& script) {
    endByForce();
    process_ = startShell(*this, script);
    return waitForEnd();
}

void LinuxRun::startAtTerminal(const std::string& commandLine) {
    endByForce();
    if (terminal_ >= 0) close(terminal_);
    process_ = forkpty(&terminal_, nullptr, nullptr, nullptr);
    if (process_ == 0) becomeShell(*this, "exec ./brasquelin " + commandLine);
}

void ProgramRun::start(const std::string& commandLine) {
    endByForce();
    process_ = startShell(*this, "exec ./brasquelin " + commandLine);
}

int ProgramRun::waitForEnd() {
    int status = 0;
    const auto process = static_cast<pid_t>(process_);
    if (!becomesTrue([&] { return waitpid(process, &status, WNOHANG) == process; }, 60)) {
        ADD_FAILURE() << "still running";
        return -1;
    }
    process_ = 0;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

void ProgramRun::endByForce() {
    if (process_ <= 0) return;
    kill(static_cast<pid_t>(process_), SIGKILL);
    waitpid(static_cast<pid_t>(process_), nullptr, 0);
    process_ = 0;
}

}  // namespace brasquelin
