#include "platform/paths.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "platform/codePages.h"
#include "platform/files.h"
#include "platform/systemFiles.h"
#include "text/substitution.h"
#include "text/text.h"

namespace brasquelin {

const char pathSeparator = '/';
const std::string_view programFileName = "brasquelin";

namespace {

bool exists(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0;
}

/// True for a link that leads nowhere, too.
bool isEntry(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0;
}

std::string withSlashes(std::string_view path) {
    std::string slashed(path);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    return slashed;
}

/// The entry of `directory` that has this name in some letter case; the name itself when there is none.
std::string entryInAnyCase(const std::string& directory, std::string_view name) {
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(directory.empty() ? "." : directory.c_str()), closedir);
    std::string found;
    while (listing) {
        const dirent* entry = readdir(listing.get());
        if (entry == nullptr) break;
        // Of several, the first in order, so that the answer does not depend on the file system.
        if (!equalIgnoringCase(entry->d_name, name)) continue;
        if (found.empty() || std::string_view(entry->d_name) < found) found = entry->d_name;
    }
    return found.empty() ? std::string(name) : found;
}

std::string resolveByComponent(const std::string& path) {
    std::string resolved = path.starts_with('/') ? "/" : "";
    for (const auto component : split(path, "/")) {
        if (component.empty()) continue;
        if (!resolved.empty() && resolved.back() != '/') resolved += '/';
        std::string exact = resolved;
        exact.append(component);
        if (!isEntry(exact)) exact = resolved.append(entryInAnyCase(resolved, component));
        resolved = std::move(exact);
    }
    return resolved;
}

}  // namespace

std::string executablePath() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? joinPath(".", programFileName) : program.string();
}

std::string shortPath(std::string_view path) {
    const std::string resolved = resolvePath(path);
    if (resolved.empty() || !exists(resolved)) return {};
    std::error_code error;
    std::string absolute = std::filesystem::absolute(resolved, error).lexically_normal().string();
    while (absolute.size() > 1 && absolute.back() == '/') absolute.pop_back();
    return error ? std::string() : absolute;
}

bool isAbsolutePath(std::string_view path) {
    return path.starts_with('/') || path.starts_with('\\');
}

std::string anchoredPath(std::string_view path) {
    if (isAbsolutePath(path) || path.find_first_of("\\/") == std::string_view::npos) return std::string(path);
    std::string absolute = shortPath(path);
    return absolute.empty() ? std::string(path) : absolute;
}

std::string resolvePath(std::string_view path) {
    std::string slashed = withSlashes(path);
    if (slashed.empty() || isEntry(slashed)) return slashed;
    return resolveByComponent(slashed);
}

std::string resolveProgram(std::string_view path) {
    constexpr std::string_view extension = ".exe";
    std::string resolved = resolvePath(path);
    if (exists(resolved)) return resolved;
    if (!endsWithIgnoringCase(path, extension)) return {};
    resolved = resolvePath(withoutLast(path, extension.size()));
    return exists(resolved) ? resolved : std::string();
}

std::string exactDirectory(std::string_view path) {
    const std::string slashed = withSlashes(path);
    if (slashed.empty()) return {};
    std::error_code error;
    const auto found = std::filesystem::canonical(pathRelativeTo(programDirectory(), slashed), error);
    // Behind a link a name may hold a back-slash, which would be taken for a separator from here on.
    if (error || !std::filesystem::is_directory(found, error) || found.string().find('\\') != std::string::npos) {
        return {};
    }
    return found.string();
}

bool isFileSystemRoot(std::string_view path) {
    return isSameDirectory(path, "/");
}

std::string processCommandLine(int argc, const char* const* argv) {
    std::string commandLine;
    for (int i = 1; i < argc; ++i) commandLine.append(i > 1 ? " " : "").append(argv[i]);
    commandLine = decodeOem(commandLine);  // as the lines of a list are
    return commandLine.substr(std::min(commandLine.find_first_not_of(' '), commandLine.size()));
}

std::vector<std::string> processArguments(int argc, const char* const* argv) {
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) arguments.push_back(decodeOem(argv[i]));
    return arguments;
}

bool displayAvailable() {
    const auto isSet = [](const char* name) {
        const char* value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
}

}  // namespace brasquelin
