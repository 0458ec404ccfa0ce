#include "platform/posix/spawn.h"

#include <fcntl.h>
#include <unistd.h>

#include "platform/posix/systemError.h"

extern char** environ;

namespace brasquelin {

Spawn::Spawn() {
    posix_spawn_file_actions_init(&actions_);
    posix_spawnattr_init(&attributes_);
    sigset_t defaults;
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes_, &defaults);
}

Spawn::~Spawn() {
    posix_spawn_file_actions_destroy(&actions_);
    posix_spawnattr_destroy(&attributes_);
}

void Spawn::takeTerminal() {
    posix_spawn_file_actions_addtcsetpgrp_np(&actions_, STDIN_FILENO);
}

void Spawn::withSignalMask(const sigset_t& mask) {
    posix_spawnattr_setsigmask(&attributes_, &mask);
    flags_ |= POSIX_SPAWN_SETSIGMASK;
}

void Spawn::give(int descriptor, int number) {
    posix_spawn_file_actions_adddup2(&actions_, descriptor, number);
}

void Spawn::giveNothing(int number) {
    posix_spawn_file_actions_addopen(&actions_, number, "/dev/null", O_RDWR, 0);
}

pid_t Spawn::start(std::vector<std::string> arguments) {
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (auto& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    posix_spawnattr_setflags(&attributes_, static_cast<short>(flags_));
    pid_t child = 0;
    const char* const program = pointers.front();
    const int error = posix_spawn(&child, program, &actions_, &attributes_, pointers.data(), environ);
    if (error != 0) raise(error, FileUse::reading, program);
    return child;
}

}  // namespace brasquelin
