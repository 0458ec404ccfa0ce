#include "editor/profileDocument.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "config/configFile.h"
#include "engine/librarySection.h"
#include "engine/plugins.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/reporting.h"
#include "platform/textFiles.h"
#include "text/fileFormat.h"
#include "text/text.h"
#include "vars/variableTables.h"

namespace brasquelin {

namespace {

constexpr std::size_t limit = 256;  // groups of a list, lines of a group

// Reading

/// The three sections of a profile while its lines are read in order. A section's tag never enters a list, not even
/// the one of a section that was left open.
class SectionReader {
  public:
    explicit SectionReader(ProfileDocument& document)
        : sections_{{SectionState(Section::library), document.listInclude},
                    {SectionState(Section::var), document.listVar},
                    {SectionState(Section::profile), document.listCommand}} {}

    /// False for a line that no list holds.
    bool take(const std::string& line) {
        for (auto& section : sections_) {
            if (section.state.noteTag(line)) return true;
        }
        bool taken = false;
        for (auto& section : sections_) {
            if (!section.state.isOpen()) continue;
            if (!line.empty()) section.lines.push_back(line);
            taken = true;
        }
        return taken;
    }

  private:
    struct ListedSection {
        SectionState state;
        std::vector<std::string>& lines;
    };
    ListedSection sections_[3];
};

ProfileDocument readDocument(const std::string& path) {
    const auto file = readTextFile(path);
    if (file->lines.empty()) throw RunTimeError(ErrorNumber::inputPastEnd, path);
    ProfileDocument document;
    document.encoding = file->encoding;
    document.profileName = titleIn(file->lines.front(), FileKind::profile);
    document.foreign = !startsWithIgnoringCase(file->lines.front(), profileHeader);
    SectionReader reader(document);
    std::for_each(file->lines.begin() + 1, file->lines.end(), [&](const std::string& line) { reader.take(line); });
    return document;
}

// Line groups

/// Where each group starts, and the end of the last one.
std::vector<std::size_t> groupStarts(const std::vector<std::string>& lines) {
    std::vector<std::size_t> starts;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i == 0 || !isAttribute(lines[i])) starts.push_back(i);
    }
    starts.push_back(lines.size());
    return starts;
}

void checkLimits(const std::vector<std::size_t>& starts) {
    bool tooLarge = starts.size() - 1 > limit;
    for (std::size_t i = 1; i < starts.size(); ++i) tooLarge = tooLarge || starts[i] - starts[i - 1] > limit;
    if (tooLarge) throw RunTimeError(ErrorNumber::subscriptOutOfRange);
}

std::size_t groupOf(const std::vector<std::size_t>& starts, std::size_t line) {
    const auto after = std::upper_bound(starts.begin(), std::prev(starts.end()), line);
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(after - starts.begin() - 1, 0));
}

auto at(std::vector<std::string>& lines, std::size_t position) {
    return lines.begin() + static_cast<std::ptrdiff_t>(position);
}

/// Exchanges group `upper` with the one behind it; `line` is where the selected line stood.
std::size_t exchangeGroups(std::vector<std::string>& lines, const std::vector<std::size_t>& starts, std::size_t upper,
                           std::size_t line) {
    const std::size_t begin = starts[upper];
    const std::size_t middle = starts[upper + 1];
    const std::size_t end = starts[upper + 2];
    std::rotate(at(lines, begin), at(lines, middle), at(lines, end));
    return line < middle ? line + (end - middle) : line - (middle - begin);
}

std::optional<std::size_t> moveGroup(ProfileDocument& document, std::optional<std::size_t> selected, bool up) {
    auto& lines = document.listCommand;
    const auto starts = groupStarts(lines);
    checkLimits(starts);
    const std::size_t line = selected.value_or(0);
    const std::size_t group = groupOf(starts, line);
    const std::size_t groups = starts.size() - 1;
    const bool stays = up ? group == 0 : group + 1 >= groups;
    if (stays || line >= lines.size()) return selected;
    return exchangeGroups(lines, starts, up ? group - 1 : group, line);
}

}  // namespace

std::vector<FileLine> linesLostBySaving(const std::string& path) {
    std::vector<FileLine> lost;
    const auto file = readTextFile(path);
    ProfileDocument document;
    SectionReader reader(document);
    for (std::size_t i = 1; i < file->lines.size(); ++i) {
        const std::string& line = file->lines[i];
        const bool kept = reader.take(line);
        if (!kept && line.find_first_not_of(" \t") != std::string::npos) lost.push_back({i + 1, line});
    }
    return lost;
}

std::vector<std::string>& ProfileDocument::list(EditorList which) {
    if (which == EditorList::include) return listInclude;
    return which == EditorList::variables ? listVar : listCommand;
}

const std::vector<std::string>& ProfileDocument::list(EditorList which) const {
    return const_cast<ProfileDocument&>(*this).list(which);
}

void ProfileDocument::append(EditorList which, const std::vector<std::string>& lines) {
    for (const auto& line : lines) list(which).push_back(onOneLine(line));
}

void ProfileDocument::replaceLine(EditorList which, std::size_t line, std::string_view text) {
    list(which).at(line) = onOneLine(text);
}

void ProfileDocument::rename(std::string_view name) {
    profileName = onOneLine(name);
}

void newDocument(ProfileDocument& document) {
    document = ProfileDocument();
    settings.profilePath.clear();
    variableTables.pluginResults[0].resetCount();
}

std::vector<DocumentPlugin> pluginsOf(const ProfileDocument& document, const std::string& profilePath) {
    std::vector<DocumentPlugin> plugins;
    for (const auto& line : document.listInclude) {
        const auto parsed = parseLibraryLine(line);
        if (!parsed || parsed->word != LibraryWord::plugin || !parsed->spaced) continue;
        plugins.push_back({line, replaceDirectories(parsed->path, profilePath), std::string(parsed->parameters)});
    }
    return plugins;
}

void openDocument(ProfileDocument& document, const std::string& path) {
    ProfileDocument opened = readDocument(path);
    opened.pluginNames = document.pluginNames;
    for (const auto& plugin : pluginsOf(opened, path)) opened.pluginNames.append(pluginNameOf(plugin.path));
    document = std::move(opened);
    settings.profilePath = path;
    variableTables.pluginResults[0].resetCount();
}

void DocumentLayout::append(Section section, EditorList which, const std::vector<std::string>& content) {
    lines_.emplace_back(openingTag(section));
    lines_.emplace_back();
    stretches_.push_back({which, lines_.size(), content.size()});
    lines_.insert(lines_.end(), content.begin(), content.end());
    lines_.emplace_back();
    lines_.emplace_back(closingTag(section));
}

DocumentLayout::DocumentLayout(const ProfileDocument& document)
    : lines_{std::string(profileHeader) + document.profileName, "", ""} {
    if (!document.listInclude.empty()) append(Section::library, EditorList::include, document.listInclude);
    if (!document.listVar.empty()) {
        lines_.emplace_back();
        append(Section::var, EditorList::variables, document.listVar);
        lines_.emplace_back();
    }
    append(Section::profile, EditorList::commands, document.listCommand);
}

DocumentPlace DocumentLayout::placeOf(std::size_t fileLine) const {
    for (const auto& stretch : stretches_) {
        const bool holds = fileLine > stretch.begin && fileLine <= stretch.begin + stretch.size;
        if (holds) return {stretch.list, fileLine - stretch.begin - 1};
    }
    return {};
}

std::vector<std::string> documentLines(const ProfileDocument& document) {
    return DocumentLayout(document).lines();
}

std::size_t groupStart(const std::vector<std::string>& lines, std::size_t line) {
    while (line > 0 && line < lines.size() && isAttribute(lines[line])) --line;
    return line;
}

std::string documentPath(const ProfileDocument& document) {
    if (!settings.profilePath.empty()) return settings.profilePath;
    const bool configured = directoryExists(settings.profileDirectory);
    return joinPath(configured ? settings.profileDirectory : programDirectory(), document.profileName + ".bqp");
}

void saveDocument(const ProfileDocument& document, const std::string& path) {
    saveLines(path, documentLines(document), document.encoding);
}

std::string proposedFileName(const ProfileDocument& document) {
    const std::string& start = settings.profilePath.empty() ? settings.profileDirectory : settings.profilePath;
    return joinPath(start, document.profileName + ".bqp");
}

bool removeLines(ProfileDocument& document, EditorList which, std::optional<std::size_t> selected) {
    auto& lines = document.list(which);
    if (!selected || *selected >= lines.size()) return false;
    std::size_t end = *selected + 1;
    if (which != EditorList::include) {
        if (isAttribute(lines[*selected])) return false;
        while (end < lines.size() && isAttribute(lines[end])) ++end;
    }
    lines.erase(at(lines, *selected), at(lines, end));
    return true;
}

void clearList(ProfileDocument& document, EditorList which) {
    document.list(which).clear();
    if (which == EditorList::include) document.pluginNames.resetCount();
}

std::optional<std::size_t> moveGroupUp(ProfileDocument& document, std::optional<std::size_t> selected) {
    return moveGroup(document, selected, true);
}

std::optional<std::size_t> moveGroupDown(ProfileDocument& document, std::optional<std::size_t> selected) {
    return moveGroup(document, selected, false);
}

}  // namespace brasquelin
