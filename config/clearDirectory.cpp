#include "config/clearDirectory.h"

#include <string>

#include "platform/files.h"
#include "platform/paths.h"
#include "text/text.h"

namespace brasquelin {

namespace {

/// True for `directory` and everything that holds it.
bool holdsOrIs(const std::string& holder, const std::string& directory) {
    if (!startsWithIgnoringCase(directory, holder)) return false;
    const auto rest = fromCharacter(directory, characterCount(holder) + 1);
    return rest.empty() || rest.front() == '/' || rest.front() == '\\' || holder.ends_with('\\');
}

bool mayBeCleared(std::string_view directory) {
    const std::string path = shortPath(directory);
    if (directory.empty() || path.empty() || isFileSystemRoot(directory)) return false;
    return !holdsOrIs(path, exeDirectory()) && !isLink(directory);
}

void deleteFilesIn(std::string_view directory) {
    for (const auto& name : listFiles(directory)) deleteFile(joinPath(directory, name));
}

}  // namespace

void clearDirectory(std::string_view directory) {
    if (!mayBeCleared(directory)) return;
    for (const auto& name : listDirectories(directory)) {
        const std::string subdirectory = joinPath(directory, name);
        deleteFilesIn(subdirectory);
        removeDirectory(subdirectory);
    }
    deleteFilesIn(directory);
}

}  // namespace brasquelin
