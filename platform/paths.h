// Paths and what the system knows about the running program.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// Put between the parts of paths that the program composes itself: "\" or "/".
extern const char pathSeparator;

/// "Brasquelin.exe" or "brasquelin".
extern const std::string_view programFileName;

/// directory + separator + name.
std::string joinPath(std::string_view directory, std::string_view name);

/// The directory of the running executable (or the user's own one: ownProgramDirectory), without a trailing separator;
/// another one for tests.
const std::string& programDirectory();
void setProgramDirectory(std::string directory);

/// The short form of the program directory: what "$exepath$" stands for.
const std::string& exeDirectory();

/// Windows: the short (8.3) form. Linux: the absolute path. Empty when the path does not exist.
std::string shortPath(std::string_view path);

/// False for a path that starts at the current directory. Windows: "\x" and "C:x" count as absolute.
bool isAbsolutePath(std::string_view path);

/// The path itself when it is absolute, else directory + separator + path.
std::string pathRelativeTo(std::string_view directory, std::string_view path);

/// An existing relative path with a directory part, made absolute; any other path as it is.
std::string anchoredPath(std::string_view path);

/// The path as the system opens it. Linux: back-slashes become slashes; the exact name is tried, then each component
/// in any letter case. Windows: the path itself.
std::string resolvePath(std::string_view path);

/// The path of a program as the system starts it. Linux: resolved, and a missing "tool.exe" is "tool" where that
/// exists. Empty when there is no such file.
std::string resolveProgram(std::string_view path);

/// The existing directory that the path names, as the system spells it: absolute, without ".", ".." and links. Linux:
/// back-slashes become slashes, and no other letter case is tried. A relative path starts at the program directory.
/// Empty when there is no such directory, and for a path like "C:x", which depends on where a drive was left.
std::string exactDirectory(std::string_view path);

/// True for "/", "C:\" and the like, however they are spelled: a directory that has no parent.
bool isFileSystemRoot(std::string_view path);

/// The command line without the program's own path; leading blanks are stripped.
std::string processCommandLine(int argc, const char* const* argv);

/// Each argument of the program by itself.
std::vector<std::string> processArguments(int argc, const char* const* argv);

/// True when windows can be shown.
bool displayAvailable();

}  // namespace brasquelin
