#include "engine/basicFunction.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>

#include "config/configFile.h"
#include "engine/expandProfileLine.h"
#include "engine/resolvedVariable.h"
#include "platform/files.h"
#include "platform/onlooker.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/fileFormat.h"
#include "text/referenceNames.h"
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
    std::vector<int> ignored;  // lines that mean nothing
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

CommandSection takeCommandLines(const TextFile& file) {
    CommandSection section;
    SectionState state(Section::command);
    int number = 0;
    for (const auto& line : file.lines) {
        ++number;
        const bool meant = state.noteTag(line) || !state.isOpen() || takeCommandLine(line, number, section);
        if (!meant) section.ignored.push_back(number);
    }
    return section;
}

void tellIgnored(const CommandSection& section, const TextFile& file, std::string_view path) {
    if (!onlooker()) return;
    for (const int number : section.ignored) {
        noteIgnored(path, number, file.lines[static_cast<std::size_t>(number) - 1]);
    }
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

void readCommandSection(std::string_view path, const TextFile& file) {
    auto& variables = variableTables.functionVariables;
    const std::uint64_t declared = variables.revision();
    auto kept = file.understood.get<KeptCommand>();
    if (kept != nullptr && kept->declared == declared) {
        variables.take(kept->variables);
    } else {
        CommandSection section = takeCommandLines(file);
        kept = file.understood.keep(KeptCommand{declared, variables, std::move(section)});
    }
    obey(kept->section);
    tellIgnored(kept->section, file, path);
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

/// A double-path value is doubled where it is not already; `room` holds what does not stand elsewhere.
std::string_view valueText(const VariableDeclaration& variable, std::optional<std::string_view> given,
                           std::string& room) {
    const VariableKind kind = kindOf(variable.typeSpec);
    if (!given && isChoice(kind)) return room = defaultText(variable, kind);
    const std::string_view value = given ? *given : std::string_view(variable.defaultValue);
    return kind == VariableKind::dbls ? room = doubleSingleBackslashes(value) : value;
}

// The names of a command

/// In their order.
enum class CommandPass { builtIn, global, variable, plugin };
constexpr std::array<std::string_view, 4> commandBuiltIns{"exepath", "scriptpath", "exepathdbslash",
                                                          "scriptpathdbslash"};

/// For tables of these revisions.
struct CommandNames {
    std::uint64_t globals = 0;
    std::uint64_t variables = 0;
    std::uint64_t results = 0;
    ReferenceNames names;
    bool areDistinct = true;  // no variable has the name of another one
    bool isPlain = true;      // the value of a variable is its text as it stands
};

CommandNames collectNames(const Table<VariableDeclaration>& variables, const Table<NamedValue>& results) {
    const auto& globals = settings.globalVars;
    CommandNames all{globals.revision(), variables.revision(), results.revision(), {}, true, true};
    const auto add = [&](CommandPass pass, std::size_t row, std::string_view name) {
        all.names.add(ReferenceNames::turnIn(pass, row), name);
    };
    for (std::size_t i = 0; i < commandBuiltIns.size(); ++i) add(CommandPass::builtIn, i, commandBuiltIns[i]);
    for (std::size_t i = 0; i < globals.count(); ++i) add(CommandPass::global, i, globals.row(i).name);
    for (std::size_t i = 0; i < variables.count(); ++i) add(CommandPass::variable, i, variables.row(i).name);
    const std::size_t last = lastPluginRow(results);
    for (std::size_t i = 0; i <= last; ++i) add(CommandPass::plugin, i, results.row(i).name);
    all.names.finish();
    for (std::size_t i = 0; i < variables.count(); ++i) {
        const auto first = all.names.turnOf(variables.row(i).name, ReferenceNames::turnIn(CommandPass::variable, 0));
        all.areDistinct = all.areDistinct && ReferenceNames::rowOf(first) == i;
    }
    all.isPlain = std::all_of(variables.begin(), variables.end(), [](const VariableDeclaration& variable) {
        const VariableKind kind = kindOf(variable.typeSpec);
        return !isChoice(kind) && kind != VariableKind::dbls;
    });
    return all;
}

std::shared_ptr<const CommandNames> namesOf(const TextFile& file, int level) {
    const auto& variables = variableTables.functionVariables;
    const auto& results = variableTables.pluginResults[level];
    auto kept = file.understood.get<CommandNames>();
    const bool current = kept && kept->globals == settings.globalVars.revision() &&
                         kept->variables == variables.revision() && kept->results == results.revision();
    return current ? kept : file.understood.keep(collectNames(variables, results));
}

/// One run of a basic function or library. The tables are empty afterwards, however it ends.
class FunctionRun {
  public:
    FunctionRun(std::string_view path, const FunctionContext& context) : path_(path), context_(context) {}
    ~FunctionRun() { variableTables.functionVariables.clear(); }
    FunctionRun(const FunctionRun&) = delete;
    FunctionRun& operator=(const FunctionRun&) = delete;

    /// Its line for the job list.
    std::string perform(const TextFile& file, const std::vector<std::string>& arguments);

  private:
    std::vector<std::optional<std::string_view>> matched(const std::vector<std::string>& arguments) const;
    ReferenceNames::Turn turnOf(std::string_view name, std::size_t position) const;
    void resolve() const;
    std::string_view plainValue(std::size_t row) const;
    void expandAllForms(ReferenceText& text) const;
    void expandDirectories(ReferenceText& text, std::string_view doubledExepath) const;
    bool mayHoldForms(const std::string& command) const;
    bool joinCommand(const std::string& command, std::string& joined) const;
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
    std::vector<std::optional<std::string_view>> given_;
    std::shared_ptr<const CommandNames> names_;
    mutable std::vector<ResolvedVariable> variables_;  // empty until they are needed
};

std::string FunctionRun::perform(const TextFile& file, const std::vector<std::string>& arguments) {
    const bool isFile = equalIgnoringCase(functionAction.type, "file");
    if (!isFile && !equalIgnoringCase(functionAction.type, "shell")) return {};
    const auto& action = functionAction;
    names_ = namesOf(file, context_.level);
    given_ = matched(arguments);
    std::string joined;
    const bool plain = !isFile && names_->isPlain;
    if (!plain) resolve();
    if (onlooker()) tellExpansions(isFile);
    if (plain && joinCommand(action.command, joined)) return joined;
    resolve();
    std::string command = placed(action.commandLine, [&] { return expandedCommand(action.command); });
    if (!isFile) return command;
    // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage): it loses track of the reference behind the lambda
    const std::string text = placed(action.writeLine, [&] { return expandedWriteText(action.write); });
    saveTextFile(command, text);
    return "//File saved to " + command;
}

/// Where an argument names its variable; arguments are mostly given in the order of the variables.
ReferenceNames::Turn FunctionRun::turnOf(std::string_view name, std::size_t position) const {
    const auto& variables = variableTables.functionVariables;
    const bool inOrder = names_->areDistinct && position < variables.count() && variables.row(position).name == name;
    const auto first = ReferenceNames::turnIn(CommandPass::variable, inOrder ? position : 0);
    return inOrder ? first : names_->names.turnOf(name, first);
}

/// The value that the arguments give each variable; the last one for a variable counts.
std::vector<std::optional<std::string_view>> FunctionRun::matched(const std::vector<std::string>& arguments) const {
    const auto& variables = variableTables.functionVariables;
    std::vector<std::optional<std::string_view>> given(variables.count());
    for (const auto& argument : arguments) {
        const Assignment assignment = splitAssignment(argument);
        const auto turn = turnOf(assignment.name, static_cast<std::size_t>(&argument - arguments.data()));
        const bool known = turn < ReferenceNames::turnIn(CommandPass::plugin, 0);
        attempt(context_.fromFile, context_.fromLine, [&] {
            if (!known) endForUnknownVar(assignment.name, context_.fromFile, context_.fromLine, path_);
            given[ReferenceNames::rowOf(turn)] = assignment.value;
        });
    }
    return given;
}

void FunctionRun::resolve() const {
    if (!variables_.empty()) return;
    const auto& variables = variableTables.functionVariables;
    VariableResolver resolver;
    variables_.reserve(variables.count());
    for (std::size_t i = 0; i < variables.count(); ++i) {
        std::string room;
        const std::string_view value = valueText(variables.row(i), given_[i], room);
        resolver.resolve(variables.row(i), value, variables_.emplace_back());
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
    const auto& action = functionAction;
    const auto command = [this](const std::string& text) {
        resolve();
        return expandedCommand(text);
    };
    const auto write = [this](const std::string& text) { return expandedWriteText(text); };
    if (action.commandLine > 0) onlooker()->expands({path_, action.commandLine, action.command, true, command});
    if (isFile && action.writeLine > 0) onlooker()->expands({path_, action.writeLine, action.write, true, write});
}

/// "index($name$)" or "text($name$)"
bool FunctionRun::mayHoldForms(const std::string& command) const {
    const auto hasForms = [](const ResolvedVariable& variable) { return variable.choice.hasForms; };
    return command.find("($") != std::string::npos && std::any_of(variables_.begin(), variables_.end(), hasForms);
}

/// As resolved or, where that is not needed, as it was given.
std::string_view FunctionRun::plainValue(std::size_t row) const {
    if (!variables_.empty()) return variables_[row].choice.value;
    return given_[row] ? *given_[row] : std::string_view(variableTables.functionVariables.row(row).defaultValue);
}

/// False when the order of the names may matter.
bool FunctionRun::joinCommand(const std::string& command, std::string& joined) const {
    std::string directory;
    const auto valueOf = [&](ReferenceNames::Turn turn) -> std::optional<std::string_view> {
        const std::size_t row = ReferenceNames::rowOf(turn);
        switch (ReferenceNames::passOf<CommandPass>(turn)) {
            case CommandPass::builtIn:
                directory = builtInDirectory(commandBuiltIns[row], [this] { return dirOf(shortPath(path_)); });
                return directory;
            case CommandPass::global:
                return settings.globalVars.row(row).value;
            case CommandPass::variable:
                return plainValue(row);
            case CommandPass::plugin:
                return variableTables.pluginResults[context_.level].row(row).value;
        }
        return std::nullopt;
    };
    return names_->names.join(command, valueOf, joined);
}

std::string FunctionRun::expandedCommand(const std::string& command) const {
    std::string joined;
    if (!mayHoldForms(command) && joinCommand(command, joined)) return joined;
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

/// The functions of an unchanged list file, by the lines of their names.
struct ListedFunctions {
    ReferenceNames names;
    // As far as they were asked for, with these globals and this program directory:
    mutable std::vector<std::optional<std::string>> paths;
    mutable std::uint64_t globals = 0;
    mutable std::string exeDirectory;

    const std::string& pathOf(const TextFile& list, std::size_t nameLine, std::string_view listPath) const {
        const bool current = globals == settings.globalVars.revision() && exeDirectory == brasquelin::exeDirectory();
        if (!current) paths.assign(list.lines.size(), std::nullopt);
        globals = settings.globalVars.revision();
        exeDirectory = brasquelin::exeDirectory();
        auto& path = paths[nameLine];
        if (!path) path = functionPath(list, nameLine, listPath);
        return *path;
    }
};

std::shared_ptr<const ListedFunctions> functionsOf(const TextFile& list) {
    if (auto kept = list.understood.get<ListedFunctions>()) return kept;
    ListedFunctions listed;
    for (std::size_t i = 0; i < list.lines.size(); i += 2) {
        listed.names.add(static_cast<ReferenceNames::Turn>(i), list.lines[i]);
    }
    listed.names.finish();
    return list.understood.keep(std::move(listed));
}

std::optional<std::string> findFunction(std::string_view name) {
    if (settings.basicFunctionPath.empty()) {
        throw RunTimeError(ErrorNumber::fileNotFound)
            .because("The setting BasicFunctionPath is empty: it names the list file of the basic functions.");
    }
    const auto list = readTextFile(settings.basicFunctionPath);
    const auto functions = functionsOf(*list);
    const auto line = functions->names.turnOf(name);
    if (line == ReferenceNames::never) return std::nullopt;
    return functions->pathOf(*list, line, settings.basicFunctionPath);
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

std::string runBasicFunction(std::string_view path, const FunctionContext& context,
                             const std::vector<std::string>& arguments) {
    FunctionRun run(path, context);
    readConfig(configFilePath());
    const auto file = readTextFile(path);
    readFunctionVariables(path, *file);
    readCommandSection(path, *file);
    return run.perform(*file, arguments);
}

std::string runPromptedLibrary(std::string_view path, const std::vector<std::string>& arguments) {
    const FunctionContext openedByUser;
    FunctionRun run(path, openedByUser);
    readConfig(configFilePath());
    const auto file = readTextFile(path);
    readCommandSection(path, *file);
    return run.perform(*file, arguments);
}

bool runNamedFunction(std::string_view name, std::string_view parameter, const FunctionContext& context,
                      std::string& jobLine) {
    const auto path = findFunction(name);
    if (!path) return false;
    if (onlooker()) onlooker()->follows(*path);
    FunctionRun run(*path, context);
    readConfig(configFilePath());
    const auto file = readTextFile(*path);
    readFunctionVariables(*path, *file);
    readCommandSection(*path, *file);
    jobLine = run.perform(*file, parameterEntries(parameter));
    return true;
}

void saveTextFile(std::string_view path, std::string_view text) {
    if (onlooker() && !onlooker()->mayWrite()) return requireDirectoryOf(path);
    std::vector<std::string> lines;
    for (const auto piece : split(text, itemSeparator)) lines.emplace_back(piece);
    writeLines(path, lines);
}

}  // namespace brasquelin
