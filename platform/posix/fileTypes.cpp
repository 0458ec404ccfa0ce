#include "platform/fileTypes.h"

#include <spawn.h>
#include <sys/wait.h>

#include <filesystem>
#include <string>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/posix/userData.h"
#include "text/substitution.h"
#include "text/text.h"

extern char** environ;

namespace brasquelin {

namespace {

/// "application/x-maker-kind".
std::string mimeTypeOf(const FileType& type) {
    return "application/x-" + replaceAll(lowerCase(type.name), ".", "-");
}

/// A word of a desktop entry's Exec line. No path holds a back-slash here.
std::string quotedForExec(std::string_view word) {
    std::string quoted = "\"";
    for (const char c : word) {
        if (c == '"' || c == '`' || c == '$') quoted += "\\\\";  // escaped twice: as string and as word
        if (c == '%') quoted += '%';
        quoted += c;
    }
    return quoted + "\"";
}

std::string desktopEntry(const FileType& type) {
    return "[Desktop Entry]\nType=Application\nName=Brasquelin\nComment=Builds command lines and runs them as a batch\n"
           "Exec=" +
           quotedForExec(type.program) + " %f\nIcon=" + type.icon +
           "\nTerminal=false\nCategories=Utility;\nMimeType=" + mimeTypeOf(type) + ";\n";
}

std::string mimePackage(const FileType& type) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n  <mime-type type=\"" +
        mimeTypeOf(type) + "\">\n    <comment>" + type.description + "</comment>\n";
    for (const auto& extension : type.extensions) text += "    <glob pattern=\"*" + extension + "\"/>\n";
    return text + "  </mime-type>\n</mime-info>\n";
}

/// True when the file did not have this text before.
bool rewrite(const std::string& path, const std::string& text) {
    std::filesystem::create_directories(dirOf(path));
    const bool changed = !fileExists(path) || readFileBytes(path) != text;
    writeFile(path, text);
    return changed;
}

/// Starts a program and forgets it: the shell in between ends at once and its child has no parent to tell.
void runInBackground(const std::string& program, const std::string& directory) {
    // Whoever reads the program's output must not wait for this: nothing keeps it open.
    std::string script = "{ command -v \"$0\" && \"$0\" \"$1\"; } </dev/null >/dev/null 2>&1 &";
    std::string name = program;
    std::string folder = directory;
    char shell[] = "sh";
    char option[] = "-c";
    char* arguments[] = {shell, option, script.data(), name.data(), folder.data(), nullptr};
    pid_t child = 0;
    if (posix_spawn(&child, "/bin/sh", nullptr, nullptr, arguments, environ) == 0) waitpid(child, nullptr, 0);
}

void writeAssociation(const FileType& type) {
    const std::string data = userDataDirectory();
    if (data.empty()) return;
    const std::string applications = joinPath(data, "applications");
    const std::string mime = joinPath(data, "mime");
    if (rewrite(joinPath(mime, "packages/brasquelin.xml"), mimePackage(type))) {
        runInBackground("update-mime-database", mime);
    }
    if (rewrite(joinPath(applications, "brasquelin.desktop"), desktopEntry(type))) {
        runInBackground("update-desktop-database", applications);
    }
}

}  // namespace

void registerFileType(const FileType& type) noexcept {
    if (dirOf(type.program).empty()) return;  // whoever started the program has moved it away
    try {
        writeAssociation(type);
    } catch (...) {  // a start without an association is a start all the same
    }
}

}  // namespace brasquelin
