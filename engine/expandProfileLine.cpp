#include "engine/expandProfileLine.h"

#include <algorithm>
#include <array>
#include <vector>

#include "config/configFile.h"
#include "engine/engineTables.h"
#include "platform/desktop.h"
#include "platform/paths.h"
#include "text/text.h"
#include "vars/typeSpec.h"
#include "vars/variableTables.h"

namespace brasquelin {

namespace {

/// An assignment as it acts on every line of its level.
struct ResolvedAssignment {
    std::string name;  // as declared
    ResolvedChoice choice;
    std::string label;  // what "text($name$)" becomes
};

/// The assignments of a level, resolved once and kept while neither they nor the declarations change.
struct ResolvedLevel {
    std::uint64_t valuesRevision = 0;
    std::uint64_t variablesRevision = 0;
    bool usable = false;
    std::vector<ResolvedAssignment> assignments;
};

[[noreturn]] void rejectAssignment(std::string_view name) {
    const auto& stack = engineTables.fileStack;
    const OpenFile nowhere;
    const OpenFile& inner = stack.empty() ? nowhere : stack.back();
    const OpenFile& outer = stack.size() < 2 ? nowhere : stack[stack.size() - 2];
    endForUnknownVar(name, outer.path, outer.line, inner.path);
}

void resolveAssignments(ResolvedLevel& resolved, int level) {
    const auto& values = std::as_const(variableTables.values)[level];
    const auto& variables = std::as_const(variableTables.profileVariables)[level];
    std::string label;  // belongs to all of them: only the match of a comb item sets it
    resolved.assignments.clear();
    for (const auto& entry : values) {
        const Assignment assignment = splitAssignment(entry);
        const int index = findVar(assignment.name, variables);
        if (index < 0) rejectAssignment(assignment.name);
        const auto& variable = variables.row(static_cast<std::size_t>(index));
        ResolvedAssignment row;
        row.name = variable.name;
        if (isChoice(kindOf(variable.typeSpec))) {
            row.choice = resolveChoice(variable.typeSpec, assignment.value);
        } else {
            row.choice.value = assignment.value;
        }
        if (row.choice.setsLabel) label = row.choice.label;
        if (!row.choice.clearsText) row.label = label;
        resolved.assignments.push_back(std::move(row));
    }
}

/// Raises what the assignments raise; nothing is kept then.
const std::vector<ResolvedAssignment>& assignmentsOf(int level) {
    static PerLevel<ResolvedLevel> levels;
    ResolvedLevel& resolved = levels[level];
    const auto valuesRevision = std::as_const(variableTables.values)[level].revision();
    const auto variablesRevision = std::as_const(variableTables.profileVariables)[level].revision();
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

/// The values of the built-ins are worked out only for a line that refers to them.
void expandBuiltIns(ReferenceText& line, std::string_view scriptPath, int index) {
    line.replace("exepath", exeDirectory());
    if (line.refersTo("exepathdblslash")) line.replace("exepathdblslash", doubleBackslashes(exeDirectory()));
    if (line.refersTo("scriptpath")) line.replace("scriptpath", dirOf(scriptPath));
    if (line.refersTo("scriptpathdblslash")) line.replace("scriptpathdblslash", doubleBackslashes(dirOf(scriptPath)));
    if (line.refersTo("index")) line.replace("index", std::to_string(index));
}

/// Replaces the counters of the outermost loops. While its header is read, a loop's depth may have no record yet.
void expandLoopRecords(ReferenceText& line, const Loops& loops, std::size_t count) {
    const std::size_t used = std::min(count, loops.records.size());
    for (std::size_t i = 0; i < used; ++i) line.replace(loops.records[i].variable, loops.records[i].currentText);
}

void expandAssignments(ReferenceText& line, const std::vector<ResolvedAssignment>& assignments) {
    for (const auto& assignment : assignments) {
        if (assignment.choice.hasForms) {
            line.replaceForm("index", assignment.name, assignment.choice.index);
            line.replaceForm("text", assignment.name, assignment.label);
        }
        line.replace(assignment.name, assignment.choice.value);
    }
}

void expandDeclared(ReferenceText& line, int level) {
    for (const auto& variable : std::as_const(variableTables.profileVariables)[level]) {
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
    const auto& loops = std::as_const(engineTables.loops)[level];

    expandBuiltIns(references, scriptPath, index);
    expandGlobals(references);
    expandLoopRecords(references, loops, loops.depth);
    expandAssignments(references, assignments);
    expandLoopRecords(references, loops, loops.records.size());
    expandDeclared(references, level);
    line = references.text();
    expandPluginVars(references, level);
    return references.text();
}

std::string expandCounters(std::string_view text, int level) {
    const auto& loops = std::as_const(engineTables.loops)[level];
    ReferenceText references{std::string(text)};
    expandLoopRecords(references, loops, loops.depth);
    return references.take();
}

void endForUnknownVar(std::string_view name, std::string_view fromFile, int fromLine, std::string_view inFile) {
    std::string text = "Error : unknown var '" + std::string(name) + "'";
    text += "\r\nFrom file '" + std::string(fromFile) + "' at line " + std::to_string(fromLine);
    text += "\r\nIn file '" + std::string(inFile) + "'";
    showCritical(text);
    throw EndProgram(1);
}

}  // namespace brasquelin
