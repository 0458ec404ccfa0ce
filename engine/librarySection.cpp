#include "engine/librarySection.h"

#include "engine/engineTables.h"
#include "engine/plugins.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/substitution.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::size_t pluginPathStart = 9;    // behind ":plugin "
constexpr std::size_t checkPathStart = 8;     // behind ":check "
constexpr std::size_t includePathStart = 10;  // behind ":include "

ProgramLine programLine(std::string_view line, std::size_t pathStart, std::string_view profilePath) {
    ProgramLine program = splitProgramLine(line, pathStart);
    program.path = replaceDirectories(program.path, profilePath);
    return program;
}

void addPlugin(std::string_view line, std::string_view profilePath, int level) {
    const ProgramLine plugin = programLine(line, pluginPathStart, profilePath);
    engineTables.plugins[level].append({plugin.path, pluginNameOf(plugin.path)});
    runPlugin(plugin.path, plugin.parameters, level);
}

void addCheck(std::string_view line, std::string_view profilePath, int level) {
    const ProgramLine check = programLine(line, checkPathStart, profilePath);
    engineTables.checks[level].append({check.path, pluginNameOf(check.path)});
    runCheck(check.path, check.parameters, level);
}

void addInclude(std::string_view line, std::string_view profilePath, int level) {
    const std::string path = replaceDirectories(fromCharacter(line, includePathStart), profilePath);
    Callable& callable = engineTables.callables[level].append({path, {}});
    const auto file = readTextFile(path);
    if (file->lines.empty()) throw RunTimeError(ErrorNumber::inputPastEnd, path);
    callable.name = callableNameOf(path, file->lines.front());
}

void applyLine(std::string_view line, std::string_view profilePath, int level) {
    if (startsWithIgnoringCase(line, ":plugin")) {
        addPlugin(line, profilePath, level);
    } else if (startsWithIgnoringCase(line, ":check")) {
        addCheck(line, profilePath, level);
    } else if (startsWithIgnoringCase(line, ":include")) {
        addInclude(line, profilePath, level);
    }
}

/// The line is noted on the file stack, so that an error can name it.
void applyNumberedLine(std::string_view line, int number, const std::string& profilePath, int level) {
    engineTables.fileStack.back().line = number;
    applyLine(line, profilePath, level);
}

}  // namespace

std::string replaceDirectories(std::string_view path, std::string_view profilePath) {
    return replaceVar("scriptpath", dirOf(profilePath), replaceVar("exepath", exeDirectory(), path));
}

ProgramLine splitProgramLine(std::string_view line, std::size_t pathStart) {
    constexpr std::string_view marker = "[param=";
    const auto match = findIgnoringCase(line, marker);
    if (!match) return {std::string(fromCharacter(line, pathStart)), {}};
    const std::string_view path = withoutLast(line.substr(0, match.begin));  // without the blank before the marker
    return {std::string(fromCharacter(path, pathStart)), std::string(withoutLast(line.substr(match.end)))};
}

std::string callableNameOf(std::string_view path, std::string_view firstLine) {
    if (endsWithIgnoringCase(path, "bqs")) return std::string(fromCharacter(firstLine, 22));
    if (endsWithIgnoringCase(path, "bqp")) return std::string(fromCharacter(firstLine, 21));
    return {};
}

void processLibrarySection(const std::string& path, int level) {
    const auto file = readTextFile(path);
    bool inSection = false;
    int number = 0;
    for (const auto& line : file->lines) {
        ++number;
        if (inSection && line.starts_with(':')) applyNumberedLine(line, number, path, level);
        if (equalIgnoringCase(line, "[library]")) inSection = true;
        if (equalIgnoringCase(line, "[/library]")) inSection = false;
    }
    engineTables.fileStack.back().line = 0;
}

}  // namespace brasquelin
