#include "engine/basicFunction.h"

#include <optional>

#include "config/configFile.h"
#include "engine/expandProfileLine.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/fileFormat.h"
#include "text/text.h"
#include "vars/declarations.h"
#include "vars/typeSpec.h"
#include "vars/variableTables.h"

namespace brasquelin {

FunctionAction functionAction;

namespace {

/// A variable of the function with what its references become.
struct ResolvedVariable {
    std::string name;
    ResolvedChoice choice;
    std::string label;
};

// The "[command]" section

bool takeKey(std::string_view line, std::string_view key, std::string& field) {
    if (!startsWithIgnoringCase(line, key)) return false;
    field = fromCharacter(line, characterCount(key) + 1);
    return true;
}

/// A line "name=value" gives the declared variable of that name its value.
void takeVariableValues(std::string_view line) {
    const Assignment assignment = splitAssignment(line);
    if (!assignment.hasEquals) return;
    auto& variables = variableTables.functionVariables;
    for (std::size_t i = 0; i < variables.count(); ++i) {
        const std::string& name = std::as_const(variables).row(i).name;
        if (name.empty() || !startsWithIgnoringCase(line, name)) continue;
        const auto rest = fromCharacter(line, characterCount(name) + 1);
        if (rest.starts_with('=')) variables.row(i).defaultValue = rest.substr(1);
    }
}

void takeCommandLine(std::string_view line) {
    takeKey(line, "type=", functionAction.type);
    takeKey(line, "command=", functionAction.command);
    takeKey(line, "write=", functionAction.write);
    takeVariableValues(line);
}

void readCommandSection(const TextFile& file) {
    SectionState section(Section::command);
    for (const auto& line : file.lines) {
        if (!section.noteTag(line) && section.isOpen()) takeCommandLine(line);
    }
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

/// The value that the arguments give each variable; the last one for a variable counts.
std::vector<std::optional<std::string_view>> matchArguments(const std::vector<std::string>& arguments,
                                                            std::string_view path, const FunctionContext& context) {
    const auto& variables = std::as_const(variableTables.functionVariables);
    std::vector<std::optional<std::string_view>> given(variables.count());
    for (const auto& argument : arguments) {
        const Assignment assignment = splitAssignment(argument);
        const int index = findVar(assignment.name, variables);
        if (index < 0) endForUnknownVar(assignment.name, context.fromFile, context.fromLine, path);
        given[static_cast<std::size_t>(index)] = assignment.value;
    }
    return given;
}

ResolvedChoice resolveValue(const VariableDeclaration& variable, std::optional<std::string_view> given) {
    const VariableKind kind = kindOf(variable.typeSpec);
    std::string value = given ? std::string(*given) : defaultText(variable, kind);
    if (isChoice(kind)) return resolveChoice(variable.typeSpec, value);
    ResolvedChoice plain;
    plain.value = kind == VariableKind::dbls ? doubleSingleBackslashes(value) : std::move(value);
    return plain;
}

std::vector<ResolvedVariable> resolveVariables(std::string_view path, const FunctionContext& context,
                                               const std::vector<std::string>& arguments) {
    const auto given = matchArguments(arguments, path, context);
    const auto& variables = std::as_const(variableTables.functionVariables);
    std::vector<ResolvedVariable> resolved;
    resolved.reserve(variables.count());
    std::string label;
    for (std::size_t i = 0; i < variables.count(); ++i) {
        const auto& variable = variables.row(i);
        ResolvedVariable row{variable.name, resolveValue(variable, given[i]), {}};
        if (row.choice.setsLabel) label = row.choice.label;
        if (!row.choice.clearsText) row.label = label;
        resolved.push_back(std::move(row));
    }
    return resolved;
}

// Expansion

void expandForms(ReferenceText& text, const std::vector<ResolvedVariable>& variables) {
    if (!text.mayRefer()) return;
    for (const auto& variable : variables) {
        if (!variable.choice.hasForms) continue;
        text.replaceForm("index", variable.name, variable.choice.index);
        text.replaceForm("text", variable.name, variable.label);
    }
}

/// The built-ins; the command text and the text to write differ in how they spell the doubled program directory.
void expandBuiltIns(ReferenceText& text, std::string_view path, std::string_view doubledExepath) {
    if (!text.mayRefer()) return;
    text.replace("exepath", exeDirectory());
    if (text.refersTo("scriptpath")) text.replace("scriptpath", dirOf(shortPath(path)));
    if (text.refersTo(doubledExepath)) text.replace(doubledExepath, doubleBackslashes(exeDirectory()));
    if (text.refersTo("scriptpathdbslash")) {
        text.replace("scriptpathdbslash", doubleBackslashes(dirOf(shortPath(path))));
    }
}

std::string expandCommand(std::string_view path, const std::vector<ResolvedVariable>& variables, int level) {
    static ReferenceText text;  // keeps its memory from call to call
    text.assign(functionAction.command);
    expandForms(text, variables);
    expandBuiltIns(text, path, "exepathdbslash");
    expandGlobals(text);
    for (const auto& variable : variables) text.replace(variable.name, variable.choice.value);
    expandPluginVars(text, level);
    return text.text();
}

/// Built-ins and globals are applied once per variable, so not at all for a function without variables.
std::string expandWriteText(std::string_view path, const std::vector<ResolvedVariable>& variables, int level) {
    ReferenceText text(functionAction.write);
    expandForms(text, variables);
    for (const auto& variable : variables) {
        expandBuiltIns(text, path, "exepathdblslash");
        expandGlobals(text);
        text.replace(variable.name, variable.choice.value);
    }
    expandPluginVars(text, level);
    return text.take();
}

/// Empties the tables for the next run, however this one ends.
struct ClearAfterwards {
    ClearAfterwards() = default;
    ClearAfterwards(const ClearAfterwards&) = delete;
    ClearAfterwards& operator=(const ClearAfterwards&) = delete;
    ~ClearAfterwards() { variableTables.functionVariables.clear(); }
};

std::string perform(std::string_view path, const FunctionContext& context, const std::vector<std::string>& arguments) {
    const bool isFile = equalIgnoringCase(functionAction.type, "file");
    if (!isFile && !equalIgnoringCase(functionAction.type, "shell")) return {};
    const auto variables = resolveVariables(path, context, arguments);
    std::string command = expandCommand(path, variables, context.level);
    if (!isFile) return command;
    saveTextFile(command, expandWriteText(path, variables, context.level));
    return "//File saved to " + command;
}

/// `argumentsOf` is asked once the declarations are known.
template <typename ArgumentsOf>
std::string readAndPerform(std::string_view path, const FunctionContext& context, ArgumentsOf argumentsOf) {
    const ClearAfterwards clearAfterwards;
    readConfig(configFilePath());
    readBasicFunction(path);
    return perform(path, context, argumentsOf());
}

// Statements that name a function

/// The path behind the function's name in the list file, relative to that file.
std::optional<std::string> findFunction(std::string_view name) {
    if (settings.basicFunctionPath.empty()) {
        throw RunTimeError(ErrorNumber::fileNotFound)
            .because("The setting BasicFunctionPath is empty: it names the list file of the basic functions.");
    }
    const auto list = readTextFile(settings.basicFunctionPath);
    for (std::size_t i = 0; i < list->lines.size(); i += 2) {
        if (!equalIgnoringCase(list->lines[i], name)) continue;
        const std::string_view line = i + 1 < list->lines.size() ? std::string_view(list->lines[i + 1]) : "";
        const std::string path = expandGlobals(replaceVar("exepath", exeDirectory(), line));
        return pathRelativeTo(dirOf(settings.basicFunctionPath), path);
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
    const auto& variables = std::as_const(variableTables.functionVariables);
    if (parameter.empty() || variables.empty()) return {};
    auto entries = splitEntries(parameter);
    if (entries.size() == 1 && leadingVariable(parameter) < 0) entries.front().insert(0, variables.row(0).name + "=");
    return entries;
}

}  // namespace

void readBasicFunction(std::string_view path) {
    readFunctionVariables(path);
    readCommandSection(*readTextFile(path));
}

std::string runBasicFunction(std::string_view path, const FunctionContext& context,
                             const std::vector<std::string>& arguments) {
    return readAndPerform(path, context, [&]() -> const std::vector<std::string>& { return arguments; });
}

bool runNamedFunction(std::string_view name, std::string_view parameter, const FunctionContext& context,
                      std::string& jobLine) {
    const auto path = findFunction(name);
    if (!path) return false;
    jobLine = readAndPerform(*path, context, [&] { return parameterEntries(parameter); });
    return true;
}

void saveTextFile(std::string_view path, std::string_view text) {
    std::vector<std::string> lines;
    for (const auto piece : split(text, itemSeparator)) lines.emplace_back(piece);
    writeLines(path, lines);
}

}  // namespace brasquelin
