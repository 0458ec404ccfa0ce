// Everything that a "$name$" can stand for, by nesting level: declarations, values, plugin results.
#pragma once

#include <string>
#include <string_view>

#include "text/substitution.h"
#include "text/table.h"

namespace brasquelin {

struct VariableDeclaration {
    std::string name;
    std::string typeSpec;
    std::string info;
    std::string defaultValue;
    int line = 0;  // of its name in the file
};

struct VariableTables {
    PerLevel<Table<VariableDeclaration>> profileVariables;  // a prompted profile uses level 1
    Table<VariableDeclaration> functionVariables;           // the library or basic function in hand
    PerLevel<Table<std::string>> values;                    // name=value, in declaration order
    PerLevel<Table<NamedValue>> pluginResults;

    void reset();
};
extern VariableTables variableTables;

/// The index of the variable with this name in any letter case, -1 when there is none.
int findVar(std::string_view name, int level);
int findVar(std::string_view name, const Table<VariableDeclaration>& variables);

/// Of the plugin variables, the last row that counts: on purpose the one behind the counted rows.
std::size_t lastPluginRow(const Table<NamedValue>& results);

/// Replaces the plugin variables of the level: the counted rows and, on purpose, the row behind them.
std::string expandPluginVars(std::string_view text, int level);
void expandPluginVars(ReferenceText& text, int level);

}  // namespace brasquelin
