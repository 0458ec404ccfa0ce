#include "engine/librarySection.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "engine/engineTables.h"
#include "engine/plugins.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/fileFormat.h"
#include "text/substitution.h"

namespace brasquelin {

namespace {

void addInclude(const std::string& path, int level) {
    auto& callables = engineTables.callables[level];
    Callable& callable = callables.nextRow();
    callable.path = path;
    callable.name.clear();
    callables.takeNextRow();
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

struct NumberedLine {
    std::string text;
    std::optional<LibraryLine> parsed;
    int number = 0;
};
/// The lines of the section.
using SectionLines = std::vector<NumberedLine>;

std::shared_ptr<const SectionLines> sectionOf(const TextFile& file) {
    if (auto kept = file.understood.get<SectionLines>()) return kept;
    SectionLines lines;
    SectionState section(Section::library);
    int number = 0;
    for (const auto& line : file.lines) {
        ++number;
        if (!section.noteTag(line) && section.isOpen()) lines.push_back({line, parseLibraryLine(line), number});
    }
    return file.understood.keep(std::move(lines));
}

}  // namespace

std::string replaceDirectories(std::string_view path, std::string_view profilePath) {
    std::string replaced = replaceVar("exepath", exeDirectory(), path);
    if (replaced.find('$') == std::string::npos) return replaced;
    return replaceVar("scriptpath", dirOf(profilePath), replaced);
}

void processLibrarySection(const std::string& path, int level) {
    const auto section = sectionOf(*readTextFile(path));
    for (const auto& line : *section) {
        if (!line.parsed) noteIgnored(path, line.number, line.text);
        if (!line.parsed) continue;
        engineTables.fileStack.back().line = line.number;  // so that an error can name it
        attempt(path, line.number, [&] { apply(*line.parsed, path, level); });
    }
    engineTables.fileStack.back().line = 0;
}

}  // namespace brasquelin
