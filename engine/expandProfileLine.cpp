#include "engine/expandProfileLine.h"

#include <algorithm>
#include <array>
#include <vector>

#include "config/configFile.h"
#include "engine/engineTables.h"
#include "engine/resolvedVariable.h"
#include "platform/reporting.h"
#include "text/text.h"
#include "vars/builtIns.h"
#include "vars/typeSpec.h"
#include "vars/variableTables.h"

namespace brasquelin {

namespace {

/// The assignments of a level, resolved once and kept while neither they nor the declarations change.
struct ResolvedLevel {
    std::uint64_t valuesRevision = 0;
    std::uint64_t variablesRevision = 0;
    bool usable = false;
    std::vector<ResolvedVariable> assignments;
};

/// Where the file in hand was called.
SourceLine callingLine() {
    const auto& stack = engineTables.fileStack;
    return stack.size() < 2 ? SourceLine() : stack[stack.size() - 2];
}

[[noreturn]] void rejectAssignment(std::string_view name) {
    const auto& stack = engineTables.fileStack;
    const SourceLine outer = callingLine();
    endForUnknownVar(name, outer.path, outer.line, stack.empty() ? std::string() : stack.back().path);
}

void resolveAssignments(ResolvedLevel& resolved, int level) {
    const auto& values = variableTables.values[level];
    const auto& variables = variableTables.profileVariables[level];
    VariableResolver resolver;
    resolved.assignments.clear();
    for (const auto& entry : values) {
        const Assignment assignment = splitAssignment(entry);
        const int index = findVar(assignment.name, variables);
        const SourceLine place = callingLine();
        attempt(place.path, place.line, [&] {
            if (index < 0) rejectAssignment(assignment.name);
            const auto& variable = variables.row(static_cast<std::size_t>(index));
            resolved.assignments.push_back(resolver.resolve(variable, assignment.value));
        });
    }
}

/// Raises what the assignments raise; nothing is kept then.
const std::vector<ResolvedVariable>& assignmentsOf(int level) {
    static PerLevel<ResolvedLevel> levels;
    ResolvedLevel& resolved = levels[level];
    const auto valuesRevision = variableTables.values[level].revision();
    const auto variablesRevision = variableTables.profileVariables[level].revision();
    const bool current =
        resolved.usable && resolved.valuesRevision == valuesRevision && resolved.variablesRevision == variablesRevision;
    if (current) return resolved.assignments;
    resolved.usable = false;
    resolveAssignments(resolved, level);
    resolved.valuesRevision = valuesRevision;
    resolved.variablesRevision = variablesRevision;
    resolved.usable = true;
    return resolved.assignments;
}

constexpr std::array<std::string_view, 4> builtIns{"exepath", "exepathdblslash", "scriptpath", "scriptpathdblslash"};

/// Replaces the counters of the outermost loops. While its header is read, a loop's depth may have no record yet.
void expandLoopRecords(ReferenceText& line, const Loops& loops, std::size_t count) {
    const std::size_t used = std::min(count, loops.records.size());
    for (std::size_t i = 0; i < used; ++i) line.replace(loops.records[i].variable, loops.records[i].currentText);
}

void expandAssignments(ReferenceText& line, const std::vector<ResolvedVariable>& assignments) {
    for (const auto& assignment : assignments) {
        expandForms(line, assignment);
        line.replace(assignment.name, assignment.choice.value);
    }
}

void expandDeclared(ReferenceText& line, int level) {
    for (const auto& variable : variableTables.profileVariables[level]) {
        if (!line.refersTo(variable.name)) continue;
        const bool item = isChoice(kindOf(variable.typeSpec)) && !variable.defaultValue.empty();
        line.replace(variable.name,
                     item ? numberedItem(variable.typeSpec, variable.defaultValue) : variable.defaultValue);
    }
}

}  // namespace

std::string expandProfileLine(std::string& line, int level, std::string_view scriptPath, int index) {
    const auto& assignments = assignmentsOf(level);  // a bad one shows in any line
    static ReferenceText references;                 // keeps its memory from line to line
    references.assign(line);
    if (!references.mayRefer()) return line;
    const auto& loops = engineTables.loops[level];

    expandBuiltIns(references, builtIns, [scriptPath] { return dirOf(scriptPath); });
    if (references.refersTo("index")) references.replace("index", std::to_string(index));
    expandGlobals(references);
    expandCounters(references, level);
    expandAssignments(references, assignments);
    expandLoopRecords(references, loops, loops.records.size());
    expandDeclared(references, level);
    line = references.text();
    expandPluginVars(references, level);
    return references.text();
}

void expandCounters(ReferenceText& text, int level) {
    const auto& loops = engineTables.loops[level];
    expandLoopRecords(text, loops, loops.depth);
}

void endForUnknownVar(std::string_view name, std::string_view fromFile, int fromLine, std::string_view inFile) {
    std::string text = "Error : unknown var '" + std::string(name) + "'";
    text += "\r\nFrom file '" + std::string(fromFile) + "' at line " + std::to_string(fromLine);
    text += "\r\nIn file '" + std::string(inFile) + "'";
    endWithMessage(text, {"unknown-variable", {std::string(fromFile), fromLine}});
}

}  // namespace brasquelin
