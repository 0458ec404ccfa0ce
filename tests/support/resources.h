// What this process holds of the system's resources.
#pragma once

#include <cstddef>

namespace brasquelin {

/// Open files, processes and the like.
std::size_t openHandles();

/// Bytes that are allocated; 0 where a sanitizer counts them itself.
std::size_t allocatedBytes();

/// How often something is done that must not grow; fewer where starting takes long.
extern const int manyTimes;
extern const int manyProcesses;

}  // namespace brasquelin
