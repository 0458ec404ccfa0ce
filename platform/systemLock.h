// What the system does for the lock on a directory (see directoryLock.h).
#pragma once

#include <string>

namespace brasquelin {

/// True when this process has the lock now, or when there can be none. False while another process has it.
bool tryLockDirectory(const std::string& directory);
void unlockDirectory();

/// For the programs that are started from now on; an empty value removes it.
void setEnvironmentOfChildren(const char* name, const std::string& value);

}  // namespace brasquelin
