// The processes that come from this one, also those whose parents have ended.
#pragma once

#include <sys/types.h>

#include <vector>

namespace brasquelin {

/// From now on whatever loses its parent below this process becomes its child.
void adoptOrphans();

/// This child and what comes from it are never among the descendants.
void spare(pid_t child);

/// All of them, parents before their children.
std::vector<pid_t> descendants();

}  // namespace brasquelin
