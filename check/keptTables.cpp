#include "check/keptTables.h"

#include <utility>

#include "platform/files.h"
#include "platform/paths.h"

namespace brasquelin {

namespace {

/// What is known of a table by its revision must not come true again.
template <typename Row>
void bringBack(PerLevel<Table<Row>>& tables, PerLevel<Table<Row>>& kept) {
    for (int level = 0; level <= PerLevel<Table<Row>>::deepestLevel; ++level) tables[level].assign(kept[level]);
}

}  // namespace

KeptTables::KeptTables() = default;

KeptTables::~KeptTables() {
    bringBack(variableTables.profileVariables, variables_.profileVariables);
    bringBack(variableTables.values, variables_.values);
    bringBack(variableTables.pluginResults, variables_.pluginResults);
    variableTables.functionVariables.assign(std::move(variables_.functionVariables));
    engineTables = std::move(engine_);
    functionAction = std::move(action_);
    settings = std::move(settings_);
    setJobSink(std::move(sink_));
}

KeptDirectory::KeptDirectory() : path_(shortPath(".")) {}

void KeptDirectory::goBack() const noexcept {
    try {
        changeDirectory(path_);
    } catch (const RunTimeError&) {
        return;
    }
}

bool tablesInUse() {
    return !engineTables.fileStack.empty();
}

}  // namespace brasquelin
