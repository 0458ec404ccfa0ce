#include "text/fileFormat.h"

#include "text/text.h"

namespace brasquelin {

namespace {

struct Tags {
    std::string_view opening;
    std::string_view closing;
};

const Tags& tagsOf(Section section) {
    static constexpr std::array<Tags, 5> tags{{{"[config]", "[/config]"},
                                               {"[library]", "[/library]"},
                                               {"[var]", "[/var]"},
                                               {"[profile]", "[/profile]"},
                                               {"[command]", "[/command]"}}};
    return tags[static_cast<std::size_t>(section)];
}

constexpr std::array<std::string_view, 3> libraryWords{":Include", ":Plugin", ":Check"};
constexpr std::string_view parameterMarker = "[Param=";

/// Splits the parameters off; what is left ends before the blank in front of the marker.
void takeParameters(std::string_view& text, std::string& parameters) {
    const auto marker = findIgnoringCase(text, parameterMarker);
    if (!marker) return;
    parameters = withoutLast(text.substr(marker.end));
    text = withoutLast(text.substr(0, marker.begin));
}

}  // namespace

FileKind kindOfFile(std::string_view path) {
    if (endsWithIgnoringCase(path, "bqp")) return FileKind::profile;
    if (endsWithIgnoringCase(path, "bqs")) return FileKind::library;
    return endsWithIgnoringCase(path, "exe") ? FileKind::program : FileKind::other;
}

bool hasExtension(std::string_view fileName, FileKind kind) {
    constexpr std::size_t extensionLength = 3;
    return kindOfFile(fileName) == kind && withoutLast(fileName, extensionLength).ends_with('.');
}

std::size_t headerLength(FileKind kind) {
    constexpr std::size_t libraryHeaderLength = 21;
    return kind == FileKind::library ? libraryHeaderLength : profileHeader.size();
}

std::string_view titleIn(std::string_view firstLine, FileKind kind) {
    if (kind != FileKind::profile && kind != FileKind::library) return {};
    return fromCharacter(firstLine, headerLength(kind) + 1);
}

std::string_view openingTag(Section section) {
    return tagsOf(section).opening;
}

std::string_view closingTag(Section section) {
    return tagsOf(section).closing;
}

bool SectionState::isTag(std::string_view line, std::string_view tag) const {
    return letterCase_ == LetterCase::exact ? line == tag : equalIgnoringCase(line, tag);
}

bool SectionState::noteTag(std::string_view line) {
    if (!line.starts_with('[')) return false;
    const bool opens = isTag(line, openingTag(section_));
    if (!opens && !isTag(line, closingTag(section_))) return false;
    open_ = opens;
    return true;
}

std::optional<LibraryLine> parseLibraryLine(std::string_view line) {
    if (!line.starts_with(':')) return std::nullopt;
    for (const LibraryWord word : {LibraryWord::plugin, LibraryWord::check, LibraryWord::include}) {
        const std::string_view text = libraryWords[static_cast<std::size_t>(word)];
        if (!startsWithIgnoringCase(line, text)) continue;
        LibraryLine parsed;
        parsed.word = word;
        parsed.spaced = line.substr(text.size()).starts_with(' ');
        if (word != LibraryWord::include) takeParameters(line, parsed.parameters);
        parsed.path = fromCharacter(line, text.size() + 2);
        return parsed;
    }
    return std::nullopt;
}

std::string writeLibraryLine(const LibraryLine& line) {
    std::string text(libraryWords[static_cast<std::size_t>(line.word)]);
    text += " " + line.path;
    if (!line.parameters.empty()) text += " " + std::string(parameterMarker) + line.parameters + "]";
    return text;
}

std::string_view valueBehind(std::string_view key, std::string_view line) {
    return fromCharacter(line, key.size() + 1);
}

Statement statementOf(std::string_view line) {
    if (line.empty() || isAttribute(line) || line.front() == '[') return Statement::none;
    switch (line.front()) {
        case 'F':
        case 'f':
            return equalIgnoringCase(line, forWord) ? Statement::loopStart : Statement::call;
        case 'N':
        case 'n':
            return equalIgnoringCase(line, nextWord) ? Statement::loopEnd : Statement::call;
        case 'B':
        case 'b':
            return startsWithIgnoringCase(line, functionPrefix) ? Statement::basicFunction : Statement::call;
        case 'P':
        case 'p':
            return startsWithIgnoringCase(line, pluginPrefix) ? Statement::plugin : Statement::call;
        default:
            return Statement::call;
    }
}

bool isAttribute(std::string_view line) {
    return line.starts_with('.');
}

}  // namespace brasquelin
