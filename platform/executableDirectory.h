// Where the running program is; the rest of the program asks programDirectory (paths.h), which tests may redirect.
#pragma once

#include <string>

namespace brasquelin {

/// Without a trailing separator.
std::string executableDirectory();

}  // namespace brasquelin
