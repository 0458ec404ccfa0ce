#include "engine/engineTables.h"

#include <algorithm>

#include "text/text.h"

namespace brasquelin {

EngineTables engineTables;

void EngineTables::reset() {
    for (int level = 0; level <= PerLevel<Loops>::deepestLevel; ++level) {
        callables[level].clear();
        plugins[level].clear();
        checks[level].clear();
        checkResults[level].clear();
        loops[level] = Loops();
    }
    fileStack.clear();
    runCounter = std::string("0");
}

const std::string& lookupCallable(std::string_view name, int level) {
    static const std::string unknown;
    const auto& callables = engineTables.callables[level];
    const auto* found = std::find_if(callables.begin(), callables.end(), [name](const Callable& callable) {
        return equalIgnoringCase(callable.name, name);
    });
    return found == callables.end() ? unknown : found->path;
}

}  // namespace brasquelin
