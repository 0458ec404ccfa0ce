#include "engine/basicFunction.h"

#include <array>
#include <cstdint>
#include <optional>

#include "config/configFile.h"
#include "engine/expandProfileLine.h"
#include "engine/resolvedVariable.h"
#include "platform/files.h"
#include "platform/onlooker.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/fileFormat.h"
#include "text/text.h"
#include "vars/builtIns.h"
#include "vars/declarations.h"
#include "vars/typeSpec.h"
#include "vars/variableTables.h"

namespace brasquelin {

FunctionAction functionAction;

namespace {

// The "[command]" section

/// What a section says itself.
struct CommandSection {
    std::optional<std::string> type;
    std::optional<std::string> command;
    std::optional<std::string> write;
    int commandLine = 0;
    int writeLine = 0;
};

bool takeKey(std::string_view line, std::string_view key, std::optional<std::string>& field) {
    if (!startsWithIgnoringCase(line, key)) return false;
    field = fromCharacter(line, characterCount(key) + 1);
    return true;
}

/// A line "name=value" gives the declared variable of that name its value. False for any other line.
bool takeVariableValues(std::string_view line) {
    const Assignment assignment = splitAssignment(line);
    if (!assignment.hasEquals) return false;
    bool taken = false;
    auto& variables = variableTables.functionVariables;
    for (std::size_t i = 0; i < variables.count(); ++i) {
        const std::string& name = variables.row(i).name;
        if (name.empty() || !startsWithIgnoringCase(line, name)) continue;
        const auto rest = fromCharacter(line, characterCount(name) + 1);
        if (!rest.starts_with('=')) continue;
        variables.change(i).defaultValue = rest.substr(1);
        taken = true;
    }
    return taken;
}

/// False for a line that means nothing.
bool takeCommandLine(std::string_view line, int number, CommandSection& section) {
    const bool isType = takeKey(line, "type=", section.type);
    const bool isCommand = takeKey(line, "command=", section.command);
    const bool isWrite = takeKey(line, "write=", section.write);
    if (isCommand) section.commandLine = number;
    if (isWrite) section.writeLine = number;
    const bool isVariable = takeVariableValues(line);
    return isType || isCommand || isWrite || isVariable;
}

CommandSection takeCommandLines(const TextFile& file, std::string_view path) {
    CommandSection section;
    SectionState state(Section::command);
    int number = 0;
    for (const auto& line : file.lines) {
        ++number;
        const bool meant = state.noteTag(line) || !state.isOpen() || takeCommandLine(line, number, section);
        if (!meant) noteIgnored(path, number, line);
    }
    return section;
}

/// Keys that are not given keep their previous text.
void obey(const CommandSection& section) {
    if (section.type) functionAction.type = *section.type;
    if (section.command) functionAction.command = *section.command;
    if (section.write) functionAction.write = *section.write;
    functionAction.commandLine = section.commandLine;
    functionAction.writeLine = section.writeLine;
}

/// What the section of an unchanged file has made of the declarations of a revision.
struct KeptCommand {
    std::uint64_t declared = 0;
    Table<VariableDeclaration> variables;
    CommandSection section;
};

void readCommandSection(std::string_view path) {
    const auto file = readTextFile(path);
    auto& variables = variableTables.functionVariables;
    const std::uint64_t declared = variables.revision();
    const auto kept = onlooker() ? nullptr : file->understood.get<KeptCommand>();
    if (kept != nullptr && kept->declared == declared) {
        variables.take(kept->variables);
        return obey(kept->section);
    }
    CommandSection section = takeCommandLines(*file, path);
    obey(section);
    file->understood.keep(KeptCommand{declared, variables, std::move(section)});
}

/// Raises what the writing of a file would, which is not done.
void requireDirectoryOf(std::string_view path) {
    const std::string directory = dirOf(path);
    if (directory.empty() || directoryExists(directory)) return;
    throw RunTimeError(ErrorNumber::pathNotFound, std::string(path)).ofWriting();
}

// Values

/// Digits alone are the number of a list or comb item; anything else is taken as it stands.
std::string defaultText(const VariableDeclaration& variable, VariableKind kind) {
    const bool digits = variable.defaultValue.find_first_not_of("0123456789") == std::string::npos;
    if (!isChoice(kind) || variable.defaultValue.empty() || !digits) return variable.defaultValue;
    return numberedItem(variable.typeSpec, variable.defaultValue);
}

/// Doubles the back-slashes that are not doubled already.
std::string doubleSingleBackslashes(std::string_view text) {
    std::string doubled;
    for (std::size_t i = 0; i < text.size(); ++i) {
        doubled.push_back(text[i]);
        if (text[i] != '\\') continue;
        doubled.push_back('\\');
        if (i + 1 < text.size() && text[i + 1] == '\\') ++i;
    }
    return doubled;
}

/// A double-path value is doubled where it is not already.
std::string valueText(const VariableDeclaration& variable, std::optional<std::string_view> given) {
    const VariableKind kind = kindOf(variable.typeSpec);
    std::string value = given ? std::string(*given) : defaultText(variable, kind);
    return kind == VariableKind::dbls ? doubleSingleBackslashes(value) : value;
}

/// One run of a basic function or library. The tables are empty afterwards, however it ends.
class FunctionRun {
  public:
    FunctionRun(std::string_view path, const FunctionContext& context) : path_(path), context_(context) {}
    ~FunctionRun() { variableTables.functionVariables.clear(); }
    FunctionRun(const FunctionRun&) = delete;
    FunctionRun& operator=(const FunctionRun&) = delete;

    /// Its line for the job list.
    std::string perform(const std::vector<std::string>& arguments);

  private:
    std::vector<std::optional<std::string_view>> matched(const std::vector<std::string>& arguments) const;
    void resolve(const std::vector<std::string>& arguments);
    void expandAllForms(ReferenceText& text) const;
    void expandDirectories(ReferenceText& text, std::string_view doubledExepath) const;
    std::string expandedCommand(const std::string& command) const;
    std::string expandedWriteText(const std::string& write) const;
    void tellExpansions(bool isFile) const;
    /// Expands a text of this line, whose errors name it.
    template <typename Expand>
    std::string placed(int line, Expand expand) const {
        try {
            return expand();
        } catch (const RunTimeError& error) {
            throw error.at(path_, line);
        }
    }

    std::string_view path_;
    const FunctionContext& context_;
    std::vector<ResolvedVariable> variables_;
};

std::string FunctionRun::perform(const std::vector<std::string>& arguments) {
    const bool isFile = equalIgnoringCase(functionAction.type, "file");
    if (!isFile && !equalIgnoringCase(functionAction.type, "shell")) return {};
    resolve(arguments);
    if (onlooker()) tellExpansions(isFile);
    const auto& action = functionAction;
    std::string command = placed(action.commandLine, [&] { return expandedCommand(action.command); });
    if (!isFile) return command;
    // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage): it loses track of the reference behind the lambda
    const std::string text = placed(action.writeLine, [&] { return expandedWriteText(action.write); });
    saveTextFile(command, text);
    return "//File saved to " + command;
}

/// The value that the arguments give each variable; the last one for a variable counts.
std::vector<std::optional<std::string_view>> FunctionRun::matched(const std::vector<std::string>& arguments) const {
    const auto& variables = variableTables.functionVariables;
    std::vector<std::optional<std::string_view>> given(variables.count());
    for (const auto& argument : arguments) {
        const Assignment assignment = splitAssignment(argument);
        const int index = findVar(assignment.name, variables);
        attempt(context_.fromFile, context_.fromLine, [&] {
            if (index < 0) endForUnknownVar(assignment.name, context_.fromFile, context_.fromLine, path_);
            given[static_cast<std::size_t>(index)] = assignment.value;
        });
    }
    return given;
}

void FunctionRun::resolve(const std::vector<std::string>& arguments) {
    const auto given = matched(arguments);
    const auto& variables = variableTables.functionVariables;
    VariableResolver resolver;
    variables_.reserve(variables.count());
    for (std::size_t i = 0; i < variables.count(); ++i) {
        variables_.push_back(resolver.resolve(variables.row(i), valueText(variables.row(i), given[i])));
    }
}

void FunctionRun::expandAllForms(ReferenceText& text) const {
    if (!text.mayRefer()) return;
    for (const auto& variable : variables_) expandForms(text, variable);
}

/// The command text and the text to write differ in how they spell the doubled program directory.
void FunctionRun::expandDirectories(ReferenceText& text, std::string_view doubledExepath) const {
    const std::array<std::string_view, 4> names{"exepath", "scriptpath", doubledExepath, "scriptpathdbslash"};
    expandBuiltIns(text, names, [this] { return dirOf(shortPath(path_)); });
}

void FunctionRun::tellExpansions(bool isFile) const {
    const std::string path(path_);
    const auto& action = functionAction;
    const auto command = [this](const std::string& text) { return expandedCommand(text); };
    const auto write = [this](const std::string& text) { return expandedWriteText(text); };
    if (action.commandLine > 0) onlooker()->expands({{path, action.commandLine}, action.command, true, command});
    if (isFile && action.writeLine > 0) onlooker()->expands({{path, action.writeLine}, action.write, true, write});
}

std::string FunctionRun::expandedCommand(const std::string& command) const {
    ReferenceText text(command);
    expandAllForms(text);
    expandDirectories(text, "exepathdbslash");
    expandGlobals(text);
    for (const auto& variable : variables_) text.replace(variable.name, variable.choice.value);
    expandPluginVars(text, context_.level);
    return text.take();
}

/// Built-ins and globals are applied once per variable, so not at all for a function without variables.
std::string FunctionRun::expandedWriteText(const std::string& write) const {
    ReferenceText text(write);
    expandAllForms(text);
    for (const auto& variable : variables_) {
        expandDirectories(text, "exepathdblslash");
        expandGlobals(text);
        text.replace(variable.name, variable.choice.value);
    }
    expandPluginVars(text, context_.level);
    return text.take();
}

// Statements that name a function

/// The path behind the name in this line of the list file, relative to that file.
std::string functionPath(const TextFile& list, std::size_t nameLine, std::string_view listPath) {
    const bool last = nameLine + 1 >= list.lines.size();
    const std::string_view line = last ? std::string_view() : std::string_view(list.lines[nameLine + 1]);
    const std::string path = expandGlobals(replaceVar("exepath", exeDirectory(), line));
    return pathRelativeTo(dirOf(listPath), path);
}

std::optional<std::string> findFunction(std::string_view name) {
    if (settings.basicFunctionPath.empty()) {
        throw RunTimeError(ErrorNumber::fileNotFound)
            .because("The setting BasicFunctionPath is empty: it names the list file of the basic functions.");
    }
    const auto list = readTextFile(settings.basicFunctionPath);
    for (std::size_t i = 0; i < list->lines.size(); i += 2) {
        if (!equalIgnoringCase(list->lines[i], name)) continue;
        return functionPath(*list, i, settings.basicFunctionPath);
    }
    return std::nullopt;
}

/// The declared variable whose "name=" the text starts with, -1 for none.
int leadingVariable(std::string_view text) {
    const Assignment assignment = splitAssignment(text);
    return assignment.hasEquals ? findVar(assignment.name, variableTables.functionVariables) : -1;
}

/// "a=1||b=2" as entries; a "||" that no declared "name=" follows belongs to the value.
std::vector<std::string> splitEntries(std::string_view parameter) {
    std::vector<std::string> entries;
    for (const auto piece : split(parameter, itemSeparator)) {
        if (entries.empty() || leadingVariable(piece) >= 0) {
            entries.emplace_back(piece);
        } else {
            entries.back().append(itemSeparator).append(piece);
        }
    }
    return entries;
}

std::vector<std::string> parameterEntries(std::string_view parameter) {
    const auto& variables = variableTables.functionVariables;
    if (parameter.empty() || variables.empty()) return {};
    auto entries = splitEntries(parameter);
    if (entries.size() == 1 && leadingVariable(parameter) < 0) entries.front().insert(0, variables.row(0).name + "=");
    return entries;
}

}  // namespace

std::vector<NamedFunction> listFunctions(std::string_view listPath) {
    std::vector<NamedFunction> functions;
    const auto list = readTextFile(listPath);
    for (std::size_t i = 0; i < list->lines.size(); i += 2) {
        functions.push_back({list->lines[i], functionPath(*list, i, listPath), static_cast<int>(i) + 1});
    }
    return functions;
}

void readBasicFunction(std::string_view path) {
    readFunctionVariables(path);
    readCommandSection(path);
}

std::string runBasicFunction(std::string_view path, const FunctionContext& context,
                             const std::vector<std::string>& arguments) {
    FunctionRun run(path, context);
    readConfig(configFilePath());
    readBasicFunction(path);
    return run.perform(arguments);
}

std::string runPromptedLibrary(std::string_view path, const std::vector<std::string>& arguments) {
    const FunctionContext openedByUser;
    FunctionRun run(path, openedByUser);
    readConfig(configFilePath());
    readCommandSection(path);
    return run.perform(arguments);
}

bool runNamedFunction(std::string_view name, std::string_view parameter, const FunctionContext& context,
                      std::string& jobLine) {
    const auto path = findFunction(name);
    if (!path) return false;
    if (onlooker()) onlooker()->follows(*path);
    FunctionRun run(*path, context);
    readConfig(configFilePath());
    readBasicFunction(*path);
    jobLine = run.perform(parameterEntries(parameter));
    return true;
}

void saveTextFile(std::string_view path, std::string_view text) {
    if (onlooker() && !onlooker()->mayWrite()) return requireDirectoryOf(path);
    std::vector<std::string> lines;
    for (const auto piece : split(text, itemSeparator)) lines.emplace_back(piece);
    writeLines(path, lines);
}

}  // namespace brasquelin
