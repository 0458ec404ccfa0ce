// Files and directories. Every path goes through the system's own resolver (see paths.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// A device is a file, too.
bool fileExists(std::string_view path);
bool directoryExists(std::string_view path);
bool isLink(std::string_view path);
/// True when both paths lead to one existing directory, however they are spelled.
bool isSameDirectory(std::string_view left, std::string_view right);

/// The most that is read as one text, in bytes.
inline constexpr std::uint64_t mostTextBytes = 64ULL << 20;

/// The bytes of a file. Raises 53, 70, 75 or 76 with the path as given: 75 for what is no regular file, such as a pipe
/// or a device, without waiting for it. Raises 7 for more than `most` bytes.
std::string readFileBytes(std::string_view path, std::uint64_t most = ~std::uint64_t{0});

/// At most `most` bytes from position `begin` on; fewer at the end of the file. Raises as readFileBytes.
std::string readFilePart(std::string_view path, std::uint64_t begin, std::size_t most);

/// What tells two versions of a file apart without reading it.
struct FileStamp {
    std::uint64_t size = 0;
    std::int64_t modified = 0;  // nanoseconds
    std::uint64_t identity = 0;
    bool operator==(const FileStamp&) const = default;
};
/// Nothing when there is no such file.
std::optional<FileStamp> fileStamp(std::string_view path);

/// Creates the file anew with these bytes: written beside its place and moved over it, so a failure leaves the old
/// file. Owner, mode and links stay. A program that is killed meanwhile leaves one temporary file beside it, which the
/// next write replaces.
/// A file that has hard links, or that may be written but not replaced (its directory is closed to the user, say), is
/// written in place: a copy of the old bytes stands beside it meanwhile or, where nothing can be created, in the user's
/// directory of temporary files, and a failure puts the old bytes back. If that fails, too, the copy stays and the
/// error names it; a program that is killed there leaves the copy.
/// Raises 61, 70, 75 or 76: 75 for a device or pipe.
void writeFile(std::string_view path, std::string_view bytes);

/// The same for bytes that come piece by piece, which may be asked for twice.
using TakeBytes = std::function<void(std::string_view piece)>;
using GiveBytes = std::function<void(const TakeBytes& take)>;
void writeInPieces(std::string_view path, const GiveBytes& give);

/// The same for a file that holds a user's work: the bytes are on the disk before the old file goes.
void saveFile(std::string_view path, std::string_view bytes);

/// A link goes, not what it leads to. False when there is nothing to be removed or it could not be; never raises.
bool deleteFile(std::string_view path) noexcept;
/// The same for an empty directory.
bool removeDirectory(std::string_view path) noexcept;

/// Names (without the directory), sorted without regard to letter case; hidden ones are left out. An unreadable
/// directory is empty. A link counts as a file.
std::vector<std::string> listFiles(std::string_view directory);
std::vector<std::string> listDirectories(std::string_view directory);

/// Raises 76 when there is no such directory. One that was entered a moment ago is not looked at again.
void changeDirectory(std::string_view path);
/// So that it is: a child process has run.
void forgetDirectory();

}  // namespace brasquelin
