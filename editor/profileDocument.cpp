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
    return DocumentLayout(document).takeLines();
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

void clearList(ProfileDocument& document, EditorList which) {
    document.list(which).clear();
    if (which == EditorList::include) document.pluginNames.resetCount();
}

}  // namespace brasquelin
