// The system's error codes as run-time errors.
#pragma once

#include <string>

#include "text/runTimeError.h"

namespace brasquelin {

/// What a failed file operation means; `code` is the system's error code.
ErrorNumber fileErrorOf(unsigned long code);

/// What a failed start of a program means.
ErrorNumber startErrorOf(unsigned long code);

}  // namespace brasquelin
