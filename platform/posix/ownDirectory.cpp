#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "platform/paths.h"
#include "platform/posix/userData.h"
#include "platform/systemFiles.h"
#include "text/runTimeError.h"
#include "text/substitution.h"

namespace brasquelin {

namespace {

namespace fs = std::filesystem;

/// Configuration and list stand beside what belongs to the program; all else that is to be changed has folders.
bool isOfTheUser(const fs::directory_entry& shipped, bool isInFolder) {
    const bool isRun = (shipped.status().permissions() & fs::perms::owner_exec) != fs::perms::none;
    const auto ending = shipped.path().extension();
    return !isRun && (isInFolder || ending == ".ini" || ending == ".txt");
}

/// What is the program's stays the installed one, which an update replaces.
void putEntry(const fs::directory_entry& shipped, bool isInFolder, const fs::path& place) {
    if (shipped.is_directory()) {
        fs::create_directory(place);
    } else if (!isOfTheUser(shipped, isInFolder)) {
        fs::create_symlink(shipped.path(), place);
    } else {
        fs::copy_file(shipped.path(), place);
        fs::permissions(place, fs::perms::owner_write, fs::perm_options::add);
    }
}

/// Whole or not at all, and the first of several starts wins.
void makeDirectory(const fs::path& shipped, const fs::path& own) {
    const fs::path begun = own.string() + ".new" + std::to_string(getpid());
    fs::create_directories(begun);
    for (fs::recursive_directory_iterator entry(shipped), end; entry != end; ++entry) {
        putEntry(*entry, entry.depth() > 0, begun / entry->path().lexically_relative(shipped));
    }
    fs::create_symlink(executablePath(), begun / programFileName);
    std::error_code taken;
    fs::rename(begun, own, taken);
    if (taken) fs::remove_all(begun);
}

}  // namespace

std::string userDataDirectory() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && *data == '/') return data;
    const char* home = std::getenv("HOME");
    return home != nullptr && *home == '/' ? std::string(home) + "/.local/share" : std::string();
}

std::string ownProgramDirectory() {
    std::string installed = dirOf(executablePath());
    const std::string shipped = joinPath(installed, "shipped");
    if (!fs::is_directory(shipped)) return installed;
    std::string own = joinPath(userDataDirectory(), "brasquelin");
    try {
        if (!fs::is_directory(own)) makeDirectory(shipped, own);
    } catch (const fs::filesystem_error& error) {
        throw RunTimeError(ErrorNumber::pathFileAccess, own).ofWriting().because(error.code().message());
    }
    return own;
}

}  // namespace brasquelin
