#include "engine/librarySection.h"

#include "engine/engineTables.h"
#include "engine/plugins.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/fileFormat.h"
#include "text/substitution.h"

namespace brasquelin {

namespace {

void addInclude(const std::string& path, int level) {
    Callable& callable = engineTables.callables[level].append({path, {}});
    if (onlooker()) onlooker()->follows(path);
    const auto file = readTextFile(path);
    if (file->lines.empty()) throw RunTimeError(ErrorNumber::inputPastEnd, path);
    callable.name = titleIn(file->lines.front(), kindOfFile(path));
    if (onlooker()) onlooker()->registers(level, engineTables.fileStack.back());
}

void apply(const LibraryLine& line, std::string_view profilePath, int level) {
    const std::string path = replaceDirectories(line.path, profilePath);
    switch (line.word) {
        case LibraryWord::include:
            return addInclude(path, level);
        case LibraryWord::plugin:
            engineTables.plugins[level].append({path, pluginNameOf(path)});
            return runPlugin(path, line.parameters, level);
        case LibraryWord::check:
            engineTables.checks[level].append({path, pluginNameOf(path)});
            return runCheck(path, line.parameters, level);
    }
}

}  // namespace

std::string replaceDirectories(std::string_view path, std::string_view profilePath) {
    return replaceVar("scriptpath", dirOf(profilePath), replaceVar("exepath", exeDirectory(), path));
}

void processLibrarySection(const std::string& path, int level) {
    const auto file = readTextFile(path);
    SectionState section(Section::library);
    int number = 0;
    for (const auto& line : file->lines) {
        ++number;
        if (section.noteTag(line) || !section.isOpen()) continue;
        const auto parsed = parseLibraryLine(line);
        if (!parsed) noteIgnored(path, number, line);
        if (!parsed) continue;
        engineTables.fileStack.back().line = number;  // so that an error can name it
        attempt(path, number, [&] { apply(*parsed, path, level); });
    }
    engineTables.fileStack.back().line = 0;
}

}  // namespace brasquelin
