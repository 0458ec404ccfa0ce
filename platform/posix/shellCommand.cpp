#include "platform/posix/shellCommand.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <functional>
#include <optional>

#include "batchRunner.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "text/runTimeError.h"
#include "text/text.h"

extern char** environ;

namespace brasquelin {

namespace {

/// The first word of a command, without its quotes.
struct FirstWord {
    std::string text;
    std::size_t length = 0;  // in the command, with its quotes
};

/// Goes through a command as the shell does, as far as quotes matter.
class CommandScanner {
  public:
    explicit CommandScanner(std::string_view command) : command_(command) {}

    /// Nothing when shell syntax decides what is run: operators anywhere, expansions or assignments in the word.
    std::optional<FirstWord> firstWord() {
        for (; position_ < command_.size(); ++position_) {
            if (!take(command_[position_])) return std::nullopt;
        }
        if (!ended_) word_.length = position_;
        if (quote_ != '\0' || word_.text.empty()) return std::nullopt;
        return word_;
    }

  private:
    bool take(char c) {
        constexpr std::string_view operators = "|;&<>()\n";
        constexpr std::string_view expansions = "$`\\";
        constexpr std::string_view unquotedExpansions = "*?[]{}~#=!";
        const bool expands = quote_ != '\'' && expansions.find(c) != npos;
        if (expands && !ended_) return false;
        if (expands && c == '\\') ++position_;
        if (expands) return true;
        const bool quoted = quote_ != '\0';
        if (c == quote_) {
            quote_ = '\0';
        } else if (!quoted && (c == '"' || c == '\'')) {
            quote_ = c;
        } else if (!quoted && (operators.find(c) != npos || (!ended_ && unquotedExpansions.find(c) != npos))) {
            return false;
        } else if (!quoted && (c == ' ' || c == '\t')) {
            endWord();
        } else {
            append(c);
        }
        return true;
    }

    void append(char c) {
        if (!ended_) word_.text += c;
    }

    void endWord() {
        if (ended_) return;
        ended_ = true;
        word_.length = position_;
    }

    static constexpr std::size_t npos = std::string_view::npos;

    std::string_view command_;
    std::size_t position_ = 0;
    char quote_ = '\0';
    bool ended_ = false;
    FirstWord word_;
};

bool mayBeRun(const std::string& path) {
    return access(path.c_str(), X_OK) == 0 && !directoryExists(path);
}

bool isOnSearchPath(const std::string& name, const std::function<bool(const std::string&)>& wanted) {
    const char* searched = std::getenv("PATH");
    if (searched == nullptr || name.empty() || name.find_first_of("\\/") != std::string::npos) return false;
    for (const auto directory : split(searched, ":")) {
        if (wanted(joinPath(directory.empty() ? "." : directory, name))) return true;
    }
    return false;
}

/// Asks the shell, which alone knows its own commands.
bool shellKnows(const std::string& name) {
    std::string word = name;
    std::string script = "command -v -- \"$0\" >/dev/null 2>&1";
    char shell[] = "sh";
    char option[] = "-c";
    char* arguments[] = {shell, option, script.data(), word.data(), nullptr};
    pid_t child = 0;
    if (posix_spawn(&child, "/bin/sh", nullptr, nullptr, arguments, environ) != 0) return true;
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) return true;
    }
    return status == 0;
}

/// What the shell starts without searching: a bare name stands for a file of the current directory here.
std::string withDirectory(const std::string& path) {
    return path.find('/') == std::string::npos ? joinPath(".", path) : path;
}

std::string requireProgram(const std::string& program, const std::string& resolved) {
    if (resolved.empty()) throw RunTimeError(ErrorNumber::fileNotFound, program);
    if (!mayBeRun(resolved)) throw RunTimeError(ErrorNumber::permissionDenied, program);
    return quotedForShell(withDirectory(resolved));
}

/// A command that begins with a program in double quotes: between them nothing is syntax.
std::string resolveQuotedProgram(std::string_view command) {
    const auto closing = command.find('"', 1);
    if (closing == std::string_view::npos) return std::string(command);
    const std::string program(command.substr(1, closing - 1));
    const std::string resolved = resolveProgram(program);
    if (resolved.empty() && isOnSearchPath(program, mayBeRun)) return std::string(command);
    return requireProgram(program, resolved) + std::string(command.substr(closing + 1));
}

std::string resolveFirstWord(std::string_view command) {
    const auto word = CommandScanner(command).firstWord();
    if (!word) return std::string(command);
    const std::string& name = word->text;
    if (name.find('/') != std::string::npos) {
        return requireProgram(name, resolveProgram(name)) + std::string(command.substr(word->length));
    }
    if (isOnSearchPath(name, mayBeRun) || shellKnows(name)) return std::string(command);
    const bool found = isOnSearchPath(name, fileExists);
    throw RunTimeError(found ? ErrorNumber::permissionDenied : ErrorNumber::fileNotFound, name);
}

std::string resolveCommand(std::string_view command) {
    if (command.starts_with('"')) return resolveQuotedProgram(command);
    return resolveFirstWord(command.substr(std::min(command.find_first_not_of(" \t"), command.size())));
}

/// The batch file that is the whole command, in quotes or not; empty when it is anything else.
std::string_view batchFileOf(std::string_view command) {
    if (command.size() > 1 && command.starts_with('"') && command.find('"', 1) == command.size() - 1) {
        command = command.substr(1, command.size() - 2);
    }
    return endsWithIgnoringCase(command, ".bat") && fileExists(command) ? command : std::string_view();
}

/// The program directory as one word wherever it stands outside quotes.
std::string quoteProgramDirectory(std::string_view command) {
    constexpr std::string_view special = " \t\n|&;<>()$`\\\"'*?[]{}~#!";
    const std::string& directory = exeDirectory();
    if (directory.find_first_of(special) == std::string::npos) return std::string(command);
    std::string text;
    char quote = '\0';
    while (!command.empty()) {
        std::size_t taken = 1;
        if (quote == '\0' && command.starts_with(directory)) {
            text += quotedForShell(directory);
            command.remove_prefix(directory.size());
            continue;
        }
        if (command.front() == '\\' && quote != '\'') taken = std::min<std::size_t>(2, command.size());
        if (command.front() == quote) {
            quote = '\0';
        } else if (quote == '\0' && (command.front() == '"' || command.front() == '\'')) {
            quote = command.front();
        }
        text.append(command.substr(0, taken));
        command.remove_prefix(taken);
    }
    return text;
}

/// A launcher's command ends with the batch file, whose path has no quotes there.
std::string launcherCommand(std::string_view command) {
    const bool launches = endsWithIgnoringCase(command, ".bat") && !exeDirectory().empty();
    return launches ? quoteProgramDirectory(command) : std::string(command);
}

}  // namespace

std::string quotedForShell(std::string_view word) {
    return "'" + replaceAll(word, "'", "'\\''") + "'";
}

std::vector<std::string> shellArguments(std::string_view command) {
    const std::string_view batchFile = batchFileOf(command);
    if (!batchFile.empty()) return {"/bin/sh", "-c", batchRunner, "brasquelin-batch", resolvePath(batchFile)};
    return {"/bin/sh", "-c", resolveCommand(launcherCommand(command))};
}

std::vector<std::string> runWindowArguments(std::string_view command) {
    const std::string program = joinPath(programDirectory(), programFileName);
    const std::string_view batchFile = batchFileOf(command);
    if (!batchFile.empty()) return {program, "--run", resolvePath(batchFile)};
    return {program, "--run-line", shellArguments(command).back()};
}

}  // namespace brasquelin
