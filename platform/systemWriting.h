// What each system does in its own way about writing files; files.h is for everybody else. Errors are the system's own
// numbers, 0 for none.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "text/runTimeError.h"

namespace brasquelin {

enum class Durability { usual, onDisk };

/// The file that is to be written.
struct WriteTarget {
    std::filesystem::path path;  // behind links
    bool exists = false;
    bool hasOtherNames = false;  // hard links
    int error = 0;               // why it can be neither replaced nor written
};
WriteTarget writeTargetOf(std::string_view path);

/// A new file for bytes that are on their way. It has one fixed name per target (see temporaryName.h), so that programs
/// that were killed leave one at most; what a dead one left is replaced. While it is open no other program opens or
/// replaces it: of programs that write one target at once each has a name of its own. On Linux, signals that end the
/// program are held back for as long as it lives. After an error the further steps do nothing.
class TemporaryFile {
  public:
    virtual ~TemporaryFile() = default;  // removed if it was neither moved nor kept
    virtual int error() const = 0;
    virtual const std::filesystem::path& path() const = 0;
    /// Takes on the owner and the mode of the target, those of a new file if there is none.
    virtual void becomeLike(const std::filesystem::path& target) = 0;
    virtual void fill(std::string_view bytes, Durability durability) = 0;
    /// Replaces the target.
    virtual void moveOver(const std::filesystem::path& target, Durability durability) = 0;
    virtual void setKept(bool kept) = 0;
};
std::unique_ptr<TemporaryFile> openTemporary(const std::filesystem::path& directory, const std::filesystem::path& name);

/// True when an existing file that refuses to be replaced may still be written where it is.
bool isRefusalToReplace(int error);

/// Puts the bytes into an existing file; room for them is made before anything is overwritten.
int overwriteFile(const std::filesystem::path& target, std::string_view bytes, Durability durability);

RunTimeError errorOfWriting(int error, std::string_view path);

}  // namespace brasquelin
