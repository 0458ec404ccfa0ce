#include "config/clearDirectory.h"

#include <string>

#include "platform/files.h"
#include "platform/paths.h"
#include "text/substitution.h"
#include "text/text.h"

namespace brasquelin {

namespace {

/// True for `place` and everything that holds it, compared by what the system finds there.
bool holds(std::string_view directory, std::string place) {
    for (; !place.empty(); place = dirOf(place)) {
        if (isSameDirectory(joinPath(place, ""), directory)) return true;
    }
    return false;
}

/// The path as the program was told it may lead through links.
bool holdsProgram(std::string_view directory) {
    return holds(directory, programDirectory()) || holds(directory, exactDirectory(programDirectory()));
}

/// "link/." means the link, too.
bool namesLink(std::string_view path) {
    const auto endsWithSeparator = [](std::string_view text) { return text.ends_with('/') || text.ends_with('\\'); };
    for (;;) {
        if (endsWithSeparator(path) || (path.ends_with('.') && endsWithSeparator(withoutLast(path)))) {
            path.remove_suffix(1);
        } else {
            return isLink(pathRelativeTo(programDirectory(), path));
        }
    }
}

/// `directory` is exact. One that the system does not identify cannot be told from the program's own.
bool mayBeCleared(std::string_view directory) {
    if (!isSameDirectory(directory, directory) || isFileSystemRoot(directory)) return false;
    return !holdsProgram(directory);
}

void deleteFilesIn(std::string_view directory) {
    for (const auto& name : listFiles(directory)) deleteFile(joinPath(directory, name));
}

}  // namespace

void clearDirectory(std::string_view path) {
    if (namesLink(path)) return;
    const std::string directory = exactDirectory(path);
    if (!mayBeCleared(directory)) return;
    for (const auto& name : listDirectories(directory)) {
        const std::string subdirectory = joinPath(directory, name);
        deleteFilesIn(subdirectory);
        removeDirectory(subdirectory);
    }
    deleteFilesIn(directory);
}

}  // namespace brasquelin
