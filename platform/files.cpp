#include "platform/files.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/systemFiles.h"
#include "text/runTimeError.h"
#include "text/text.h"

namespace brasquelin {

namespace {

std::vector<std::string> namesIn(std::string_view directory, bool directories) {
    std::vector<std::pair<std::string, std::string>> keyed;  // in lower case, and as they are
    for (const DirectoryEntry& entry : entriesIn(directory)) {
        if (entry.isDirectory == directories) keyed.emplace_back(lowerCase(entry.name), entry.name);
    }
    std::sort(keyed.begin(), keyed.end());
    std::vector<std::string> names;
    names.reserve(keyed.size());
    for (auto& [key, name] : keyed) names.push_back(std::move(name));
    return names;
}

/// The one that was entered last: each line of a list enters its directory again.
struct EnteredDirectory {
    using Clock = std::chrono::steady_clock;
    std::string path;
    Clock::time_point when;
};
EnteredDirectory entered;

/// "/x", "\x" and "C:\x" name the same directory wherever they are said.
bool startsAtRoot(std::string_view path) {
    return path.starts_with('/') || path.starts_with('\\') || path.substr(1, 2) == ":\\";
}

/// The system's own removal takes files and empty directories alike.
bool removeEntry(std::string_view path) {
    std::error_code error;
    return std::filesystem::remove(systemPath(path), error);
}

}  // namespace

void raiseTooLarge(std::string_view path, std::uint64_t most) {
    throw RunTimeError(ErrorNumber::outOfMemory, std::string(path))
        .because("The file holds more than " + std::to_string(most >> 20U) + " MB, the most that is read as a text.");
}

bool fileExists(std::string_view path) {
    return fileKindOf(path) == FileKind::file;
}

bool directoryExists(std::string_view path) {
    return fileKindOf(path) == FileKind::directory;
}

bool deleteFile(std::string_view path) noexcept {
    return (!directoryExists(path) || isLink(path)) && removeEntry(path);
}

bool removeDirectory(std::string_view path) noexcept {
    return directoryExists(path) && !isLink(path) && removeEntry(path);
}

std::vector<std::string> listFiles(std::string_view directory) {
    return namesIn(directory, false);
}

std::vector<std::string> listDirectories(std::string_view directory) {
    return namesIn(directory, true);
}

void forgetDirectory() {
    entered.path.clear();
}

void changeDirectory(std::string_view path) {
    constexpr auto moment = std::chrono::milliseconds(10);
    const auto now = EnteredDirectory::Clock::now();
    if (entered.path == path && now - entered.when < moment) return;
    std::error_code error;
    forgetDirectory();
    std::filesystem::current_path(currentDirectoryPath(path), error);
    if (error) throw RunTimeError(ErrorNumber::pathNotFound, std::string(path));
    if (startsAtRoot(path)) entered = {std::string(path), now};
}

}  // namespace brasquelin
