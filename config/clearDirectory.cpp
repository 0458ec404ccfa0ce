#include "config/clearDirectory.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

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

/// The user's own, and others that no file of a program belongs in.
bool holdsKept(std::string_view directory, std::vector<std::string> kept) {
    for (const char* name : {"HOME", "USERPROFILE"}) {
        const char* home = std::getenv(name);
        if (home != nullptr) kept.emplace_back(home);
    }
    return std::any_of(kept.begin(), kept.end(), [directory](const std::string& path) {
        const std::string exact = exactDirectory(path);
        return holds(directory, exact.empty() ? exactDirectory(dirOf(path)) : exact);
    });
}

/// True when a link on the way leads outside the directory that it stands in. How the program itself is reached is
/// nobody's trap.
bool isLedOutside(std::string_view path) {
    const std::string full = pathRelativeTo(programDirectory(), path);
    const std::size_t first = full.starts_with(programDirectory()) ? programDirectory().size() : 0;
    for (auto end = full.find_first_of("\\/", first + 1); end != full.npos; end = full.find_first_of("\\/", end + 1)) {
        const std::string part = full.substr(0, end);
        if (!isLink(part)) continue;
        if (!holds(exactDirectory(joinPath(dirOf(part), "")), exactDirectory(part))) return true;
    }
    return false;
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
bool mayBeCleared(std::string_view directory, const std::vector<std::string>& kept) {
    if (!isSameDirectory(directory, directory) || isFileSystemRoot(directory)) return false;
    return !holdsProgram(directory) && !holdsKept(directory, kept);
}

void deleteFilesIn(std::string_view directory) {
    for (const auto& name : listFiles(directory)) deleteFile(joinPath(directory, name));
}

}  // namespace

void clearDirectory(std::string_view path, const std::vector<std::string>& kept) {
    if (namesLink(path) || isLedOutside(path)) return;
    const std::string directory = exactDirectory(path);
    if (!mayBeCleared(directory, kept)) return;
    for (const auto& name : listDirectories(directory)) {
        const std::string subdirectory = joinPath(directory, name);
        deleteFilesIn(subdirectory);
        removeDirectory(subdirectory);
    }
    deleteFilesIn(directory);
}

}  // namespace brasquelin
