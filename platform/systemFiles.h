// What each system does in its own way about files and paths; files.h and paths.h are for everybody else.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

enum class FileKind { none, file, directory };

/// What the path leads to; a device is a file. A link that leads nowhere is nothing on Linux and what it was made for
/// on Windows.
FileKind fileKindOf(std::string_view path);

struct DirectoryEntry {
    std::string name;
    bool isDirectory = false;  // a link is none
};

/// In no order, without the hidden ones. Empty for a directory that cannot be read.
std::vector<DirectoryEntry> entriesIn(std::string_view directory);

/// The path for std::filesystem: resolved (see paths.h), in the system's own encoding, and a drive alone as its root.
std::filesystem::path systemPath(std::string_view path);

/// The same for the current directory. Windows: a short form where the path is longer than the directory of a program
/// that is started may be.
std::filesystem::path currentDirectoryPath(std::string_view path);

/// The error of a file that holds more than `most` bytes.
[[noreturn]] void raiseTooLarge(std::string_view path, std::uint64_t most);

/// The program directory. Linux: where the program was installed for all users (a directory "shipped" stands beside
/// it), each works in one of his own, which is made at his first start: in XDG_DATA_HOME, with copies of what
/// the user may change and links to the rest. Raises the error of making it.
std::string ownProgramDirectory();

/// The running program itself. Tests may redirect programDirectory, not this.
std::string executablePath();

}  // namespace brasquelin
