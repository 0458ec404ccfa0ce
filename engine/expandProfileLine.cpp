#include "engine/expandProfileLine.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "config/configFile.h"
#include "engine/engineTables.h"
#include "engine/resolvedVariable.h"
#include "platform/reporting.h"
#include "text/referenceNames.h"
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

/// Raises what the assignment raises.
void resolveAssignment(const Assignment& assignment, int level, VariableResolver& resolver,
                       ResolvedVariable& resolved) {
    const auto& variables = variableTables.profileVariables[level];
    const int index = findVar(assignment.name, variables);
    if (index < 0) rejectAssignment(assignment.name);
    resolver.resolve(variables.row(static_cast<std::size_t>(index)), assignment.value, resolved);
}

/// What was resolved by the same declarations before serves for a text of the same name: only its value is another.
void resolveAssignments(ResolvedLevel& resolved, int level) {
    const auto& values = variableTables.values[level];
    const bool sameVariables = resolved.variablesRevision == variableTables.profileVariables[level].revision();
    const std::size_t before = sameVariables ? resolved.assignments.size() : 0;
    VariableResolver resolver;
    std::size_t count = 0;
    resolved.assignments.resize(values.count());
    for (const auto& entry : values) {
        const Assignment assignment = splitAssignment(entry);
        ResolvedVariable& place = resolved.assignments[count];
        if (count < before && !place.isChoice && place.name == assignment.name) {
            place.choice.value = assignment.value;
            ++count;
            continue;
        }
        const SourceLine calling = callingLine();
        attempt(calling.path, calling.line, [&] {
            resolveAssignment(assignment, level, resolver, place);
            ++count;
        });
    }
    resolved.assignments.resize(count);
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
    try {
        resolveAssignments(resolved, level);
    } catch (...) {
        resolved.assignments.clear();
        throw;
    }
    resolved.valuesRevision = valuesRevision;
    resolved.variablesRevision = variablesRevision;
    resolved.usable = true;
    return resolved.assignments;
}

using Turn = ReferenceNames::Turn;

/// The passes over a line, in their order.
enum class Pass : Turn { builtIn, global, openLoop, assignment, loop, declared, plugin };

constexpr Turn turnOf(Pass pass, std::size_t row) {
    return ReferenceNames::turnIn(pass, row);
}

constexpr std::array<std::string_view, 5> builtIns{"exepath", "exepathdblslash", "scriptpath", "scriptpathdblslash",
                                                   "index"};
constexpr std::size_t indexRow = 4;

/// The names of a level, found again while the tables that hold them are unchanged.
class LevelNames {
  public:
    const ReferenceNames& of(int level, const std::vector<ResolvedVariable>& assignments) {
        if (!isCurrent(level, assignments)) collect(level, assignments);
        values_ = variableTables.values[level].revision();
        // While its header is read, a loop's depth may have no record yet.
        names_.leaveOut(turnOf(Pass::openLoop, engineTables.loops[level].depth), turnOf(Pass::assignment, 0));
        return names_;
    }

  private:
    bool isCurrent(int level, const std::vector<ResolvedVariable>& assignments) const;
    bool hasAssigned(const std::vector<ResolvedVariable>& assignments) const;
    void collect(int level, const std::vector<ResolvedVariable>& assignments);
    void add(Pass pass, std::size_t row, std::string_view name) { names_.add(turnOf(pass, row), name); }

    bool usable_ = false;
    std::uint64_t globals_ = 0;  // revisions
    std::uint64_t variables_ = 0;
    std::uint64_t results_ = 0;
    std::uint64_t values_ = 0;
    std::vector<std::string> assigned_;
    std::vector<std::string> loops_;
    ReferenceNames names_;
};

bool LevelNames::hasAssigned(const std::vector<ResolvedVariable>& assignments) const {
    return std::equal(assigned_.begin(), assigned_.end(), assignments.begin(), assignments.end(),
                      [](const auto& name, const auto& assignment) { return name == assignment.name; });
}

bool LevelNames::isCurrent(int level, const std::vector<ResolvedVariable>& assignments) const {
    const auto& records = engineTables.loops[level].records;
    return usable_ && globals_ == settings.globalVars.revision() &&
           variables_ == variableTables.profileVariables[level].revision() &&
           results_ == variableTables.pluginResults[level].revision() &&
           (values_ == variableTables.values[level].revision() || hasAssigned(assignments)) &&
           std::equal(loops_.begin(), loops_.end(), records.begin(), records.end(),
                      [](const auto& name, const auto& record) { return name == record.variable; });
}

void LevelNames::collect(int level, const std::vector<ResolvedVariable>& assignments) {
    const auto& records = engineTables.loops[level].records;
    const auto& variables = variableTables.profileVariables[level];
    const auto& results = variableTables.pluginResults[level];
    globals_ = settings.globalVars.revision();
    variables_ = variables.revision();
    results_ = results.revision();
    assigned_.clear();
    for (const auto& assignment : assignments) assigned_.push_back(assignment.name);
    loops_.clear();
    for (const auto& record : records) loops_.push_back(record.variable);
    names_.clear();
    for (std::size_t i = 0; i < builtIns.size(); ++i) add(Pass::builtIn, i, builtIns[i]);
    for (std::size_t i = 0; i < settings.globalVars.count(); ++i) add(Pass::global, i, settings.globalVars.row(i).name);
    for (std::size_t i = 0; i < loops_.size(); ++i) add(Pass::openLoop, i, loops_[i]);
    for (std::size_t i = 0; i < assigned_.size(); ++i) add(Pass::assignment, i, assigned_[i]);
    for (std::size_t i = 0; i < loops_.size(); ++i) add(Pass::loop, i, loops_[i]);
    for (std::size_t i = 0; i < variables.count(); ++i) add(Pass::declared, i, variables.row(i).name);
    const std::size_t last = lastPluginRow(results);
    for (std::size_t i = 0; i <= last; ++i) add(Pass::plugin, i, results.row(i).name);
    names_.finish();
    usable_ = true;
}

/// What stays from line to line: names, and memory.
struct Kept {
    PerLevel<LevelNames> names;
    ReferenceText text;
    std::string joined;
    std::string builtInValue;
};

Kept kept;

/// One line's way through the passes.
class LineExpansion {
  public:
    LineExpansion(int level, std::string_view scriptPath, int index)
        : level_(level),
          scriptPath_(scriptPath),
          index_(index),
          assignments_(assignmentsOf(level)),  // a bad one shows in any line
          names_(kept.names[level].of(level, assignments_)) {}

    /// True when the line could be joined, without the passes from `end` on being needed.
    bool join(std::string_view line, Turn end) const {
        const auto value = [this, end](Turn turn) { return turn < end ? plainValue(turn) : nullptr; };
        return names_.join(line, value, kept.joined);
    }

    void replace(ReferenceText& text, Turn from, Turn end) const {
        for (Turn turn = names_.next(text, from); turn < end; turn = names_.next(text, turn + 1)) {
            replaceOne(text, turn);
        }
    }

  private:
    const std::string* plainValue(Turn turn) const;
    const std::string& builtInValue(std::size_t row) const;
    void replaceOne(ReferenceText& text, Turn turn) const;

    int level_;
    std::string_view scriptPath_;
    int index_;
    const std::vector<ResolvedVariable>& assignments_;
    const ReferenceNames& names_;
};

const std::string& LineExpansion::builtInValue(std::size_t row) const {
    std::string& value = kept.builtInValue;
    const auto scriptDirectory = [this] { return dirOf(scriptPath_); };
    value = row == indexRow ? std::to_string(index_) : builtInDirectory(builtIns[row], scriptDirectory);
    return value;
}

bool isItem(const VariableDeclaration& variable) {
    return !variable.defaultValue.empty() && isChoice(kindOf(variable.typeSpec));
}

/// A null pointer for what has more to it than a value.
const std::string* LineExpansion::plainValue(Turn turn) const {
    const std::size_t row = ReferenceNames::rowOf(turn);
    switch (ReferenceNames::passOf<Pass>(turn)) {
        case Pass::builtIn:
            return &builtInValue(row);
        case Pass::global:
            return &settings.globalVars.row(row).value;
        case Pass::openLoop:
        case Pass::loop:
            return &engineTables.loops[level_].records[row].currentText;
        case Pass::assignment:
            return assignments_[row].choice.hasForms ? nullptr : &assignments_[row].choice.value;
        case Pass::declared: {
            const auto& variable = variableTables.profileVariables[level_].row(row);
            return isItem(variable) ? nullptr : &variable.defaultValue;
        }
        case Pass::plugin:
            return &variableTables.pluginResults[level_].row(row).value;
    }
    return nullptr;
}

void LineExpansion::replaceOne(ReferenceText& text, Turn turn) const {
    const std::size_t row = ReferenceNames::rowOf(turn);
    const std::string* value = plainValue(turn);
    if (value != nullptr) return text.replace(names_.name(turn), *value);
    if (ReferenceNames::passOf<Pass>(turn) == Pass::assignment) {
        expandForms(text, assignments_[row]);
        return text.replace(assignments_[row].name, assignments_[row].choice.value);
    }
    const auto& variable = variableTables.profileVariables[level_].row(row);
    text.replace(variable.name, numberedItem(variable.typeSpec, variable.defaultValue));
}

}  // namespace

std::string expandProfileLine(std::string& line, int level, std::string_view scriptPath, int index) {
    constexpr Turn lastPass = turnOf(Pass::plugin, 0);
    const LineExpansion expansion(level, scriptPath, index);
    if (expansion.join(line, lastPass)) return line = kept.joined;
    ReferenceText& text = kept.text;
    text.assign(line);
    expansion.replace(text, 0, lastPass);
    line = text.text();
    expansion.replace(text, lastPass, ReferenceNames::never);
    return text.text();
}

const std::string& expandedLine(std::string_view line, int level, std::string_view scriptPath, int index) {
    const LineExpansion expansion(level, scriptPath, index);
    if (expansion.join(line, ReferenceNames::never)) return kept.joined;
    kept.text.assign(line);
    expansion.replace(kept.text, 0, ReferenceNames::never);
    return kept.text.text();
}

void endForUnknownVar(std::string_view name, std::string_view fromFile, int fromLine, std::string_view inFile) {
    std::string text = "Error : unknown var '" + std::string(name) + "'";
    text += "\r\nFrom file '" + std::string(fromFile) + "' at line " + std::to_string(fromLine);
    text += "\r\nIn file '" + std::string(inFile) + "'";
    endWithMessage(text, {"unknown-variable", {std::string(fromFile), fromLine}});
}

}  // namespace brasquelin
