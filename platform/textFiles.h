// Text files as lines. Files that are read again and again are kept in memory and checked by their stamp.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

struct TextFile {
    std::vector<std::string> lines;  // without their ends
};

/// The file's lines, decoded (see codePages.h). The same object is returned for as long as the file is unchanged.
/// Raises 53, 70, 75 or 76.
std::shared_ptr<const TextFile> readTextFile(std::string_view path);

/// The same for a list file, whose bytes are in the console's code page. Not kept in memory.
TextFile readOemTextFile(std::string_view path);

/// Drops what is kept in memory: the program has written a file or a child process has run.
void forgetTextFiles();

/// The lines, each ended by CR LF, in the encoding of files.
std::string textFileBytes(const std::vector<std::string>& lines);

}  // namespace brasquelin
