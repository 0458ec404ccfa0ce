#include "config/configFile.h"

#include <memory>

#include "config/clearDirectory.h"
#include "platform/desktop.h"
#include "platform/onlooker.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/fileFormat.h"
#include "text/text.h"

namespace brasquelin {

Settings settings;

namespace {

/// The keys that set a text, with the one blank on each side of "=". They are read in any letter case. A launcher is
/// never written.
struct Key {
    std::string_view text;
    std::string Settings::*setting;
    bool leadingBackslashRule;
    std::string ConfigFields::*field;
};
constexpr Key keys[] = {
    {"LibraryPath = ", &Settings::libraryPath, true, &ConfigFields::libraryPath},
    {"ProfilePath = ", &Settings::profilePath, true, &ConfigFields::profilePath},
    {"PluginPath = ", &Settings::pluginPath, true, &ConfigFields::pluginPath},
    {"BasicFunctionPath = ", &Settings::basicFunctionPath, true, &ConfigFields::basicFunctionPath},
    {"ShellExec = ", &Settings::shellExec, false, nullptr},
};
constexpr std::string_view clearKey = "Clear = ";

/// The texts that the last read set, in their order, so that reading an unchanged file again costs little.
std::vector<std::pair<std::string Settings::*, std::string>> lastTexts;
std::string lastExeDirectory;

std::string withExeDirectory(std::string_view value) {
    return (value.starts_with('\\') ? exeDirectory() : std::string()) + std::string(value);
}

void clearOnRequest(const std::string& directory, const std::vector<std::string>& kept) {
    if (!settings.startingUp || directory.empty()) return;
    const std::string question = "Do you really want to erase this directory : " + directory;
    if (!settings.commandLine.empty() || desktop().askYesNo(question, "Erase ?")) clearDirectory(directory, kept);
}

/// False for a line that is no setting.
bool takeSetting(std::string_view line, const std::vector<std::string>& kept) {
    for (const auto& key : keys) {
        if (!startsWithIgnoringCase(line, key.text)) continue;
        const auto value = line.substr(key.text.size());
        std::string text = key.leadingBackslashRule ? withExeDirectory(value) : std::string(value);
        settings.*key.setting = text;
        if (key.setting == &Settings::profilePath) settings.profileDirectory = text;
        lastTexts.emplace_back(key.setting, std::move(text));
        return true;
    }
    if (!startsWithIgnoringCase(line, clearKey)) return false;
    clearOnRequest(withExeDirectory(line.substr(clearKey.size())), kept);
    return true;
}

void takeVariable(std::string_view line, std::string_view path, int number) {
    const Assignment variable = splitAssignment(line);
    if (!variable.hasEquals) {
        throw RunTimeError(ErrorNumber::invalidCall, std::string(path), number)
            .because("The line '" + std::string(line) + "' holds no \"=\".");
    }
    if (settings.globalVars.count() >= Table<NamedValue>::rowLimit) {
        throw RunTimeError(ErrorNumber::subscriptOutOfRange, std::string(path), number);
    }
    settings.globalVars.append({std::string(variable.name), replaceVar("exepath", exeDirectory(), variable.value)});
}

/// Those behind the line that is obeyed, too. A launcher is no path.
std::vector<std::string> configuredPaths(const TextFile& file) {
    std::vector<std::string> paths;
    for (const auto& line : file.lines) {
        for (const auto& key : keys) {
            const bool named = key.leadingBackslashRule && startsWithIgnoringCase(line, key.text);
            const std::string value = named ? line.substr(key.text.size()) : std::string();
            if (!value.empty()) paths.push_back(withExeDirectory(replaceVar("exepath", exeDirectory(), value)));
        }
    }
    return paths;
}

std::string withoutToken(std::string_view line, std::string_view path, int number) {
    try {
        return replaceVar("exepath", exeDirectory(), line);
    } catch (const RunTimeError& error) {
        throw error.at(path, number);
    }
}

void readLines(const TextFile& file, std::string_view path) {
    SectionState config(Section::config, LetterCase::exact);
    SectionState var(Section::var, LetterCase::exact);
    const std::vector<std::string> kept = settings.startingUp ? configuredPaths(file) : std::vector<std::string>();
    int number = 0;
    for (const auto& rawLine : file.lines) {
        ++number;
        const std::string line = withoutToken(rawLine, path, number);
        if (config.noteTag(line) || var.noteTag(line)) continue;
        attempt(path, number, [&] {
            const bool isSetting = !config.isOpen() || takeSetting(line, kept);
            if (!isSetting && !var.isOpen()) noteIgnored(path, number, line);
            if (var.isOpen() && !line.empty()) takeVariable(line, path, number);
        });
    }
}

/// The program directory in a path field, in lower case as the field, becomes "$exepath$".
std::string storedPath(const std::string& field) {
    return replaceAll(lowerCase(field), lowerCase(exeDirectory()), "$exepath$");
}

}  // namespace

const std::string& configFilePath() {
    static std::string directory;
    static std::string path;
    if (directory != programDirectory() || path.empty()) {
        directory = programDirectory();
        path = joinPath(directory, "Brasquelin.ini");
    }
    return path;
}

void readConfig(std::string_view path) {
    const auto file = readTextFile(path);
    const bool unchanged = file == settings.readFrom && exeDirectory() == lastExeDirectory;
    if (unchanged && !settings.startingUp) {
        // The editor may have put its own file into a setting meanwhile.
        for (const auto& [setting, text] : lastTexts) settings.*setting = text;
        return;
    }
    settings.readFrom.reset();
    settings.globalVars.resetCount();
    lastTexts.clear();
    lastExeDirectory = exeDirectory();
    readLines(*file, path);
    settings.readFrom = file;
}

std::string savedClearDirectory() {
    return expandGlobals("$TempDir$");
}

void writeConfig(std::string_view path, const ConfigFields& fields) {
    std::vector<std::string> lines{"#Brasquelin Initialize", "", std::string(openingTag(Section::config)), ""};
    for (const auto& key : keys) {
        if (key.field != nullptr) lines.push_back(std::string(key.text) + storedPath(fields.*key.field));
    }
    lines.push_back(std::string(clearKey) + savedClearDirectory());
    lines.insert(lines.end(),
                 {"", std::string(closingTag(Section::config)), "", std::string(openingTag(Section::var)), ""});
    lines.insert(lines.end(), fields.variables.begin(), fields.variables.end());
    lines.insert(lines.end(), {std::string(closingTag(Section::var)), ""});
    saveLines(path, lines, encodingOfFile(path));
}

void expandGlobals(ReferenceText& text) {
    if (!text.mayRefer()) return;
    for (const auto& [name, value] : settings.globalVars) text.replace(name, value);
}

std::string expandGlobals(std::string_view text) {
    ReferenceText references{std::string(text)};
    expandGlobals(references);
    return references.take();
}

}  // namespace brasquelin
