// Reads the "[var]" block of profiles, libraries and basic functions.
#pragma once

#include <string_view>

namespace brasquelin {

struct TextFile;

/// What follows the message about an invalid type text.
enum class OnParseError { endProgram, report };

/// Reads the declarations of a profile into the table of `level`. A 257th one is reported and the 256 stay. False when
/// an invalid type text was only reported; the table is empty then. Raises the error of opening the file.
bool readProfileVariables(std::string_view path, int level, OnParseError onParseError = OnParseError::endProgram);

/// The same for a library or basic function, into `functionVariables`. It differs in three points: its line numbers
/// count declarations rather than lines, a fourth line that begins with "." is nothing special, and the end of the file
/// right behind a declaration is error 62 (reported).
bool readFunctionVariables(std::string_view path, OnParseError onParseError = OnParseError::endProgram);
/// From its lines.
bool readFunctionVariables(std::string_view path, const TextFile& file);

}  // namespace brasquelin
