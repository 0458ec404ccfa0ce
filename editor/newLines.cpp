#include "editor/newLines.h"

#include <algorithm>
#include <optional>

#include "config/configFile.h"
#include "engine/librarySection.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/reporting.h"
#include "platform/textFiles.h"
#include "text/fileFormat.h"
#include "text/text.h"
#include "vars/declarations.h"
#include "vars/typeSpec.h"
#include "vars/variableTables.h"

namespace brasquelin {

namespace {

std::string joined(const std::vector<std::string>& items) {
    std::string text;
    for (const auto& item : items) {
        if (&item != &items.front()) text.append(itemSeparator);
        text.append(item);
    }
    return text;
}

bool isCallable(std::string_view path) {
    const FileKind kind = kindOfFile(path);
    return (kind == FileKind::profile || kind == FileKind::library) && fileExists(path);
}

void appendInclude(const std::string& path, std::vector<CallableEntry>& entries) {
    const auto file = readTextFile(path);
    const std::string firstLine = file->lines.empty() ? std::string() : file->lines.front();
    entries.push_back({std::string(titleIn(firstLine, kindOfFile(path))), path});
}

void appendFunctions(const std::string& listPath, std::vector<CallableEntry>& entries) {
    const auto list = readTextFile(listPath);
    for (std::size_t i = 0; i < list->lines.size(); i += 2) {
        entries.push_back({std::string(functionPrefix) + list->lines[i], {}});
    }
}

}  // namespace

const std::vector<std::string>& variableTypes() {
    static const std::vector<std::string> types{"Text", "Comb", "List", "PathOpen", "PathSave", "DblSOpen", "DblSSave"};
    return types;
}

std::string typeSpecOf(const VariableFields& fields) {
    const auto start = firstCharacters(fields.type, 4);
    if (fields.type == "List") return "List(" + joined(fields.listChoices) + ")";
    if (fields.type == "Comb") return "Comb(" + joined(fields.combEntries) + ")";
    if (start == "Path" || start == "DblS") return fields.type + "(" + fields.filter + ")";
    return start == "Text" ? "Text" : "";
}

std::vector<std::string> declarationLines(const VariableFields& fields) {
    return {fields.name, std::string(typeKey) + typeSpecOf(fields), std::string(infoKey) + fields.info,
            std::string(defaultKey) + fields.defaultValue};
}

std::string combEntry(std::string_view label, std::string_view command) {
    return std::string(label) + "[" + std::string(command) + "]";
}

std::vector<std::string> loopLines(const std::string& name, const std::string& start, const std::string& end,
                                   const std::string& step) {
    if (name.empty() || start.empty() || end.empty() || step.empty()) return {};
    std::vector<std::string> lines{std::string(forWord)};
    std::size_t key = 0;
    for (const auto* value : {&name, &start, &end, &step}) lines.push_back(std::string(loopKeys[key++]) + *value);
    return lines;
}

namespace {

/// What follows the folder in the path, from the separator on; nothing when the path does not lie below it.
std::optional<std::string_view> below(std::string_view path, const std::string& folder) {
    if (folder.empty() || !path.starts_with(folder)) return std::nullopt;
    const auto rest = path.substr(folder.size());
    const bool atBorder = rest.starts_with('\\') || rest.starts_with('/') || folder.back() == pathSeparator;
    return atBorder ? std::optional(rest) : std::nullopt;
}

}  // namespace

std::string includePath(std::string_view chosen, std::string_view profilePath) {
    if (const auto rest = below(chosen, exeDirectory())) return "$exepath$" + std::string(*rest);
    const std::string profileFolder = profilePath.empty() ? std::string() : shortPath(dirOf(profilePath));
    if (const auto rest = below(chosen, profileFolder)) return "$scriptpath$" + std::string(*rest);
    return std::string(chosen);
}

std::vector<CallableEntry> callableEntries(const ProfileDocument& document) {
    std::vector<CallableEntry> entries;
    for (const auto& line : document.listInclude) {
        const auto parsed = parseLibraryLine(line);
        if (!parsed || parsed->word != LibraryWord::include || !parsed->spaced) continue;
        const std::string path = replaceDirectories(parsed->path, settings.profilePath);
        if (isCallable(path)) reporting(path, [&] { appendInclude(path, entries); });
    }
    if (const std::string list = settings.basicFunctionPath; !list.empty()) {
        reporting(list, [&list, &entries] { appendFunctions(list, entries); });
    }
    for (const auto& name : document.pluginNames) entries.push_back({std::string(pluginPrefix) + name, {}});
    return entries;
}

std::string_view parameterPrompt(std::string_view entry) {
    if (entry.starts_with(pluginPrefix)) return "Plugin Command Line :";
    return entry.starts_with(functionPrefix) ? "Basic Function parameter :" : "";
}

namespace {

/// Choices are given by their number.
std::string startOf(const VariableDeclaration& variable) {
    if (!isChoice(kindOf(variable.typeSpec))) return includePath(variable.defaultValue, settings.profilePath);
    return variable.defaultValue.empty() ? std::string() : "list(" + variable.defaultValue + ")";
}

std::string aboutChoices(const VariableDeclaration& variable) {
    std::string text;
    std::size_t number = 0;
    for (const auto item : choiceItems(variable.typeSpec)) {
        text.append("\nlist(").append(std::to_string(++number)).append("): ").append(item);
    }
    return text;
}

std::string aboutVariable(const VariableDeclaration& variable) {
    std::string text = variable.info.empty() || variable.info == "none" ? std::string() : variable.info + '\n';
    text.append("Type: ").append(typeWord(variable.typeSpec));
    return isChoice(kindOf(variable.typeSpec)) ? text + aboutChoices(variable) : text;
}

}  // namespace

std::vector<CallParameter> parametersOfInclude(const std::string& path) {
    std::vector<CallParameter> parameters;
    readFunctionVariables(path, OnParseError::report);
    for (const auto& variable : variableTables.functionVariables) {
        parameters.push_back({variable.name, startOf(variable), aboutVariable(variable)});
    }
    return parameters;
}

}  // namespace brasquelin
