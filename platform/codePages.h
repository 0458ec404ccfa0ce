// Bytes of files to UTF-8 text and back, the same way on both systems.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

/// What the bytes of a text file are written in. ANSI is the system's code page (Linux: Windows-1252).
enum class Encoding { ansi, utf8, utf8WithMark };

/// Windows: ANSI. Linux: UTF-8.
extern const Encoding newFileEncoding;

/// A byte order mark decides (UTF-8, UTF-16 in either byte order) and is dropped; else what is valid UTF-8 is UTF-8,
/// and anything else is ANSI.
std::string decodeFile(std::string_view bytes);

/// The encoding in which a file is written again. ASCII is no evidence: it counts as a new file. UTF-16 becomes UTF-8
/// with the mark.
Encoding encodingOf(std::string_view bytes);

/// A text that would not be read back from the encoding becomes UTF-8 with the mark.
std::string encodeFile(std::string_view text, Encoding encoding = newFileEncoding);

/// List files: as decodeFile, with the OEM page (Linux: 850) in place of the ANSI page.
std::string decodeOem(std::string_view bytes);

/// Batch files, as the command interpreter reads them. Windows: the OEM page, the nearest letter for what it cannot
/// hold. Linux: UTF-8.
std::string encodeOem(std::string_view text);

/// A piece of what a console program prints. Windows: from the OEM page. Linux: the bytes as they are.
std::string decodePrinted(std::string_view bytes);

}  // namespace brasquelin
