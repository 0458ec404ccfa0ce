#include "vars/variableTables.h"

#include <algorithm>

#include "text/text.h"

namespace brasquelin {

VariableTables variableTables;

void VariableTables::reset() {
    functionVariables.clear();
    for (int level = 0; level <= PerLevel<Table<std::string>>::deepestLevel; ++level) {
        profileVariables[level].clear();
        values[level].clear();
        pluginResults[level].clear();
    }
}

int findVar(std::string_view name, const Table<VariableDeclaration>& variables) {
    const auto* found = std::find_if(variables.begin(), variables.end(), [name](const VariableDeclaration& variable) {
        return equalIgnoringCase(variable.name, name);
    });
    return found == variables.end() ? -1 : static_cast<int>(found - variables.begin());
}

int findVar(std::string_view name, int level) {
    return findVar(name, variableTables.profileVariables[level]);
}

std::size_t lastPluginRow(const Table<NamedValue>& results) {
    return std::min(results.count(), results.rowLimit - 1);
}

void expandPluginVars(ReferenceText& text, int level) {
    if (!text.mayRefer()) return;
    const auto& results = variableTables.pluginResults[level];
    const std::size_t last = lastPluginRow(results);
    for (std::size_t i = 0; i <= last; ++i) text.replace(results.row(i).name, results.row(i).value);
}

std::string expandPluginVars(std::string_view text, int level) {
    ReferenceText references{std::string(text)};
    expandPluginVars(references, level);
    return references.take();
}

}  // namespace brasquelin
