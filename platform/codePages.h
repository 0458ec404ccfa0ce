// Bytes of files to UTF-8 text and back.
// Windows: ANSI and OEM code page. Linux: UTF-8 where it is valid, else Windows-1252 (a list file: code page 850).
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

/// A byte order mark at the start is taken as UTF-8 and dropped.
std::string decodeFile(std::string_view bytes);
/// A text that the code page cannot hold becomes UTF-8 with a byte order mark.
std::string encodeFile(std::string_view text);

/// Batch and list files: what the command interpreter reads.
std::string decodeOem(std::string_view bytes);
std::string encodeOem(std::string_view text);

}  // namespace brasquelin
