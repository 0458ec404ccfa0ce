#include "platform/windows/programStart.h"

#include <windows.h>

#include <optional>

#include "platform/files.h"
#include "platform/windows/wideText.h"
#include "text/runTimeError.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::size_t npos = std::string_view::npos;

/// A command, split behind its program.
struct SplitCommand {
    std::string name;       // as written, without quotes
    std::string program;    // full path
    std::string arguments;  // with the blank before them
};

bool isBatchFile(std::string_view path) {
    return endsWithIgnoringCase(path, ".bat") || endsWithIgnoringCase(path, ".cmd");
}

std::string searchPath(const std::string& name, const wchar_t* extension) {
    std::wstring found(MAX_PATH, L'\0');
    const std::wstring wide = toWide(name);
    DWORD length = 0;
    while ((length = SearchPathW(nullptr, wide.c_str(), extension, static_cast<DWORD>(found.size()), found.data(),
                                 nullptr)) >= found.size()) {
        found.resize(length + 1);
    }
    found.resize(length);
    return fromWide(found);
}

/// The full path of the program that `name` stands for; empty when there is none.
std::string findProgram(const std::string& name) {
    for (const wchar_t* extension : {L".exe", L".com", L".bat", L".cmd"}) {
        std::string found = searchPath(name, extension);
        if (fileExists(found)) return found;
    }
    return {};
}

SplitCommand splitQuoted(std::string_view command) {
    const std::size_t end = command.find('"', 1);
    SplitCommand split;
    split.name = command.substr(1, end == npos ? npos : end - 1);
    split.program = findProgram(split.name);
    if (end != npos) split.arguments = command.substr(end + 1);
    return split;
}

SplitCommand splitAtBlank(std::string_view command) {
    const std::size_t nameLimit = command.find_first_of("\"<>|*?");
    SplitCommand split;
    for (std::size_t end = command.find(' ');; end = command.find(' ', end + 1)) {
        split.name = command.substr(0, end);
        split.program = findProgram(split.name);
        if (end != npos) split.arguments = command.substr(end);
        if (!split.program.empty() || end == npos || end > nameLimit) return split;
    }
}

std::string quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

std::string quotedIfBlank(const std::string& path) {
    return path.find(' ') == npos ? path : quoted(path);
}

/// Where the absolute path of a batch file with blanks starts that ends the arguments unquoted.
std::optional<std::size_t> batchFileAtEnd(std::string_view arguments) {
    if (!isBatchFile(arguments)) return std::nullopt;
    for (std::size_t blank = arguments.find(' '); blank != npos; blank = arguments.find(' ', blank + 1)) {
        const std::string_view path = arguments.substr(blank + 1);
        const bool absolute = path.starts_with("\\\\") || path.substr(1).starts_with(":\\");
        if (absolute && path.find(' ') != npos && fileExists(path)) return blank + 1;
    }
    return std::nullopt;
}

std::string quoteBatchFile(std::string arguments) {
    const std::optional<std::size_t> start = batchFileAtEnd(arguments);
    if (start) arguments.replace(*start, npos, quoted(arguments.substr(*start)));
    return arguments;
}

std::string commandInterpreter() {
    std::wstring path(MAX_PATH, L'\0');
    const DWORD length = GetEnvironmentVariableW(L"ComSpec", path.data(), MAX_PATH);
    path.resize(length < MAX_PATH ? length : 0);
    return path.empty() ? findProgram("cmd") : fromWide(path);
}

/// The outer quotes are for the interpreter, which takes off the first and the last one.
ProgramStart throughInterpreter(const SplitCommand& split) {
    const std::string interpreter = commandInterpreter();
    const std::string inner = quotedIfBlank(split.name) + split.arguments;
    return {toWide(interpreter), toWide(quotedIfBlank(interpreter) + " /s /c " + quoted(inner))};
}

}  // namespace

ProgramStart programStartOf(std::string_view command) {
    while (command.starts_with(' ')) command.remove_prefix(1);
    if (command.empty()) throw RunTimeError(ErrorNumber::invalidCall);
    const bool hasQuotes = command.starts_with('"');
    const SplitCommand split = hasQuotes ? splitQuoted(command) : splitAtBlank(command);
    if (split.program.empty()) throw RunTimeError(ErrorNumber::fileNotFound, split.name);
    if (isBatchFile(split.program)) return throughInterpreter(split);
    const std::string name = hasQuotes ? quoted(split.name) : quotedIfBlank(split.name);
    return {toWide(split.program), toWide(name + quoteBatchFile(split.arguments))};
}

}  // namespace brasquelin
