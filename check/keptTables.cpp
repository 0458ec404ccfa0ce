#include "check/keptTables.h"

#include <utility>

#include "platform/files.h"
#include "platform/paths.h"

namespace brasquelin {

KeptTables::KeptTables() = default;

KeptTables::~KeptTables() {
    variableTables = std::move(variables_);
    engineTables = std::move(engine_);
    functionAction = std::move(action_);
    settings = std::move(settings_);
    setJobSink(std::move(sink_));
}

// A short path would stay relative on Windows.
KeptDirectory::KeptDirectory() : path_(anchoredPath("./")) {}

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
