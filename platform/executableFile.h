// Files that can be run.
#pragma once

#include <string_view>

namespace brasquelin {

/// For everyone who may read it. Without effect where the system or its disk knows no such thing.
void makeExecutable(std::string_view path);

}  // namespace brasquelin
