#include "platform/paths.h"

#include <utility>

#include "platform/systemFiles.h"
#include "text/substitution.h"

namespace brasquelin {

namespace {

std::string directoryOverride;

std::string& keptExeDirectory() {
    static std::string directory = shortPath(programDirectory());
    return directory;
}

}  // namespace

std::string joinPath(std::string_view directory, std::string_view name) {
    return std::string(directory) + pathSeparator + std::string(name);
}

std::string pathRelativeTo(std::string_view directory, std::string_view path) {
    return isAbsolutePath(path) || directory.empty() ? std::string(path) : joinPath(directory, path);
}

const std::string& programDirectory() {
    if (!directoryOverride.empty()) return directoryOverride;
    static const std::string own = ownProgramDirectory();
    return own;
}

void setProgramDirectory(std::string directory) {
    directoryOverride = std::move(directory);
    keptExeDirectory() = shortPath(programDirectory());
}

const std::string& exeDirectory() {
    return keptExeDirectory();
}

}  // namespace brasquelin
