// The system's error numbers as run-time errors.
#pragma once

#include <string_view>

#include "text/runTimeError.h"

namespace brasquelin {

enum class FileUse { reading, writing };

/// What `error` (an errno) means to whoever reads or writes the file.
ErrorNumber errorNumberOf(int error, FileUse use);

[[noreturn]] void raise(int error, FileUse use, std::string_view path);

}  // namespace brasquelin
