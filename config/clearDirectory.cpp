#include "config/clearDirectory.h"

#include <string>

#include "platform/files.h"
#include "platform/paths.h"
#include "text/substitution.h"

namespace brasquelin {

namespace {

/// True for the program directory and everything that holds it, however the path is spelled.
bool holdsProgram(std::string_view directory) {
    for (std::string place = programDirectory(); !place.empty(); place = dirOf(place)) {
        if (isSameDirectory(joinPath(place, ""), directory)) return true;
    }
    return false;
}

bool mayBeCleared(std::string_view directory) {
    // A directory that the system does not identify cannot be told from the program's own.
    if (directory.empty() || !isSameDirectory(directory, directory) || isFileSystemRoot(directory)) return false;
    return !holdsProgram(directory) && !isLink(directory);
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
