// What the desktop knows about the program's own kinds of files.
#pragma once

#include <string>
#include <vector>

namespace brasquelin {

struct FileType {
    std::string name;                     // "Maker.Kind"
    std::string description;              // for the user
    std::vector<std::string> extensions;  // each with its dot
    std::string program;                  // opens a file of this type, which is its only argument
    std::string icon;                     // a picture file
};

/// Makes the program the one that opens these files; what another program registered is replaced. Failures are silent.
/// Windows: in the registry, for all users where that is allowed, else for this one; the shell needs neither
/// description nor icon. Linux: a desktop entry and a MIME package below XDG_DATA_HOME.
void registerFileType(const FileType& type) noexcept;

}  // namespace brasquelin
